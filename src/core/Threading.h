#pragma once

/// The words that say who may call an operation. A type's comment names the thread of its
/// operations; an operation that differs ends its comment with one of these.
///
/// - [audio]  the host's audio thread, inside a processing call. Nothing marked so allocates, waits
/// for
///            a lock or makes a system call.
/// - [gui]    the thread that is inside an editor call, or runs the main loop.
/// - [worker] a thread of our own.
/// - [any]    any thread, at any time.
///
/// A state may follow the word: [audio, processing] holds from the first processed block until the
/// host suspends; [any, idle] holds while no block is being processed.
namespace Vorin::Core {}
