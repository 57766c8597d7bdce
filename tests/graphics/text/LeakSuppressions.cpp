// What the leak sanitizer is told when the tests run under it.

/// The values of a font pattern are found by their distance from the pattern, not by a pointer to
/// them, so the sanitizer takes those of every pattern that lives to the end for lost. These are
/// few, those of the process's default configuration and of the drawing library's caches, and they
/// do not become more with the fonts and texts that are used.
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
