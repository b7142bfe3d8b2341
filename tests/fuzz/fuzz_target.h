// One input of the fuzzer: the files of a folder in one string.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Inputs to start from: sound folders, packed as the target reads them.
std::vector<std::string> FuzzSeeds();
