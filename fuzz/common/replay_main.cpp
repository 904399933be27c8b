// Replays inputs through a fuzz target without libFuzzer: every file named, and every file of every
// folder named (sorted, not recursive). Used by CTest to run the checked-in corpus on every build,
// under the sanitizers in a sanitizer build. Fails when it finds nothing to replay, so a wrong path
// cannot pass unnoticed.
#include "fuzzsupport.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Defined by the targets that make an application (fuzzapp.cpp): ends it before the process exits.
extern "C" void pickerctlFuzzFinish() __attribute__((weak));

namespace {

std::vector<std::filesystem::path> inputsOf(const std::filesystem::path &path)
{
    std::vector<std::filesystem::path> inputs;
    if (std::filesystem::is_directory(path)) {
        for (const auto &entry : std::filesystem::directory_iterator(path)) {
            if (entry.is_regular_file())
                inputs.push_back(entry.path());
        }
        std::sort(inputs.begin(), inputs.end());
    } else if (std::filesystem::is_regular_file(path)) {
        inputs.push_back(path);
    }
    return inputs;
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<std::filesystem::path> inputs;
    for (int i = 1; i < argc; ++i) {
        const std::vector<std::filesystem::path> found = inputsOf(argv[i]);
        if (found.empty()) {
            std::fprintf(stderr, "%s: no input at %s\n", argv[0], argv[i]);
            return 2;
        }
        inputs.insert(inputs.end(), found.begin(), found.end());
    }
    if (inputs.empty()) {
        std::fprintf(stderr, "usage: %s corpus-folder-or-file...\n", argv[0]);
        return 2;
    }
    for (const std::filesystem::path &input : inputs) {
        std::ifstream file(input, std::ios::binary);
        const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        std::printf("replaying %s (%zu bytes)\n", input.string().c_str(), content.size());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(content.data()), content.size());
    }
    if (pickerctlFuzzFinish)
        pickerctlFuzzFinish();
    std::printf("%zu inputs replayed\n", inputs.size());
    return 0;
}
