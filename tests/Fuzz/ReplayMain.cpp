// Runs a target over its examples and a fixed set of mutations of them.

#include "Fuzz/FuzzTarget.h"
#include "Fuzz/MutatedCorpus.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

constexpr int mutations = 6'000;

std::string current; // NOLINT: a signal handler reaches nothing else

// Leaves the input behind, as libFuzzer does.
void keepInput(int signal)
{
    const int file = open("failing-input", O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0600);
    if (file >= 0 && write(file, current.data(), current.size()) >= 0)
        close(file);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void run(std::string input)
{
    current = std::move(input);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(current.data()), current.size());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s <folder of examples>\n", argv[0]);
        return 2;
    }
    jotwell::MutatedCorpus corpus(argv[1]);
    if (corpus.examples().empty()) {
        std::fprintf(stderr, "No examples in %s\n", argv[1]);
        return 2;
    }
    std::signal(SIGABRT, keepInput);
    for (const std::string& example : corpus.examples())
        run(example);
    for (int count = 0; count < mutations; ++count)
        run(corpus.nextMutation());
    std::printf("%zu examples, %d mutations\n", corpus.examples().size(), mutations);
}
