// host_tests [--seconds=N] [--seed=N] [options of GoogleTest]

#include "files/TemporaryFolder.h"
#include "host/Options.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

TestHost::COptions options;

bool ReadOption(const char* word) {
    if (std::strncmp(word, "--seconds=", 10) == 0) {
        options.seconds = std::atof(word + 10);
        return options.seconds > 0.0;
    }
    if (std::strncmp(word, "--seed=", 7) == 0) {
        options.seed = static_cast<unsigned>(std::strtoul(word + 7, nullptr, 10));
        return true;
    }
    return false;
}

} // namespace

const TestHost::COptions& TestHost::GetOptions() { return options; }

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        if (!ReadOption(argv[i])) {
            std::fprintf(stderr, "%s: unknown option; known are --seconds=N, --seed=N\n", argv[i]);
            return 2;
        }
    }
    // The settings and presets of whoever runs the tests are nothing to the tests.
    const TestFiles::CTemporaryFolder folder;
    setenv("XDG_DATA_HOME", folder.GetPath().c_str(), 1);
    return RUN_ALL_TESTS();
}
