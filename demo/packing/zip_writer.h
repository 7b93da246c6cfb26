// Writes zip archives for tests.
#pragma once

#include <string>

#include "packing/archive_writer.h"

namespace packing {

/// Names are written as they are, however hostile; one that ends in "/" is a folder. `options` are
/// those of libarchive. Room is for a megabyte.
std::string packZip(const PackedFiles& files, const char* options = "");

} // namespace packing
