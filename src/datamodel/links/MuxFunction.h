#pragma once

namespace Vorin::DataModel::Objects {

/// Makes one value of a list of `count` values. 0 for an empty list, but 1 for a relation, which
/// holds as long as no two neighbours break it.
using MuxFunction = double (*)(const double* values, int count);

/// The function of a word, never null:
/// - "mean", which is also what null and any word that is not listed here give;
/// - "max", "min"; "-mean", "-max", "-min": the same, negated;
/// - "<", "<=", ">", ">=", "=": 1 when each value stands so to the next one in the list, else 0;
/// - "+", "-", "*", "/": the values folded from the first one on.
MuxFunction FindMuxFunction(const char* word);

} // namespace Vorin::DataModel::Objects
