#pragma once

#include <istream>
#include <stdexcept>
#include <string>
#include <vector>

namespace databygge {

/// What stops the build: the text names the file's line and what is wrong with it.
class Byggfel : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One record of a CSV file.
struct CsvPost {
    int rad = 0;                   ///< line on which the record begins, from 1
    std::vector<std::string> fält; ///< the fields, without their quotes
};

/// Reads the next record in the manner of RFC 4180: fields parted by commas, a field may stand between double
/// quotes and then hold commas, line ends and doubled quotes. LF and CR LF both end a record; empty lines are
/// skipped.
/// @param rad the line counter, 0 before the first call; moved past the lines read
/// @return false at the end of the file
/// @throws Byggfel for a quote that is never closed, or for text that leans on a quote
bool LäsCsvPost(std::istream& in, int& rad, CsvPost& post);

} // namespace databygge
