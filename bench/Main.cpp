// SPDX-License-Identifier: MIT
// vantrix-bench: what the resident program costs while nobody looks at it, beside the least that
// its work can cost, all in the same minute on the same machine; or, round after round, beside
// other monitors.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <stdexcept>

#include "Bench.h"
#include "comparison/Comparer.h"

namespace vtx::bench {
namespace {

int compare(const Options& options) {
    const std::string text = markdown(Comparer(options).measure());
    std::fputs(text.c_str(), stdout);
    if (options.markdown && !(std::ofstream(*options.markdown) << text))
        throw std::runtime_error("cannot write " + options.markdown->string());
    return EXIT_SUCCESS;
}

int run(const std::vector<std::string>& arguments) {
    const Options options = parse(arguments);
    if (options.help) {
        std::fwrite(usage().data(), 1, usage().size(), stdout);
        return EXIT_SUCCESS;
    }
    if (options.rounds) return compare(options);
    const CostReport report = Bench(options).measure();
    std::fputs(table(report, options.threads).c_str(), stdout);
    if (options.json) saveJson(report, *options.json);
    return EXIT_SUCCESS;
}

}  // namespace
}  // namespace vtx::bench

int main(int argc, char** argv) {
    try {
        return vtx::bench::run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vantrix-bench: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
