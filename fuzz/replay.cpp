// SPDX-License-Identifier: MIT
// Runs a fuzz target's entry point once on every input of the corpus folders
// (or files) named on the command line, in name order, so that an input that
// once crashed the library is tried on every test run, by any compiler and
// under the sanitizers of the build.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> inputsIn(const fs::path& place) {
    std::vector<fs::path> inputs;
    if (fs::is_directory(place)) {
        for (const fs::directory_entry& entry : fs::directory_iterator(place))
            if (entry.is_regular_file())
                inputs.push_back(entry.path());
        std::sort(inputs.begin(), inputs.end());
    } else {
        inputs.push_back(place);
    }
    return inputs;
}

std::vector<std::uint8_t> contentsOf(const fs::path& file) {
    std::ifstream in(file, std::ios::in | std::ios::binary);
    if (!in)
        throw fs::filesystem_error("cannot read the input", file, std::make_error_code(std::errc::io_error));
    return std::vector<std::uint8_t>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace

int main(int argc, char** argv) {
    std::size_t replayed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const fs::path& input : inputsIn(argv[i])) {
            // Named before it runs: if it crashes, the last name is the culprit.
            std::cout << input.string() << std::endl;
            const std::vector<std::uint8_t> data = contentsOf(input);
            LLVMFuzzerTestOneInput(data.data(), data.size());
            ++replayed;
        }
    }
    std::cout << "replayed " << replayed << " inputs" << std::endl;
    // No input at all means a corpus went missing, not that all is well.
    return replayed > 0 ? 0 : 1;
}
