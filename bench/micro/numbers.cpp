// Numbers of the format, a thousand at a time.
#include "drawing/random.hpp"
#include "veltrane/file/number_text.hpp"

#include <benchmark/benchmark.h>

#include <charconv>
#include <string>
#include <vector>

namespace {

using namespace veltrane;

constexpr int kCount = 1000;

/// Co-ordinates of drawings: mostly all digits, some short, some whole.
std::vector<double> reals() {
    bench::Random random(1);
    std::vector<double> reals;
    for (int i = 0; i < kCount; ++i) {
        const double value = random.between(-10000, 10000);
        const int kind = i % 4;
        reals.push_back(kind == 0   ? static_cast<int>(value)
                        : kind == 1 ? static_cast<int>(value) / 8.0
                                    : value);
    }
    return reals;
}

std::vector<std::string> real_texts() {
    std::vector<std::string> texts;
    for (double real : reals()) {
        char text[32];
        texts.emplace_back(text, std::to_chars(text, text + sizeof text, real).ptr);
    }
    return texts;
}

void read_reals(benchmark::State& state) {
    const std::vector<std::string> texts = real_texts();
    for (auto _ : state) {
        for (const std::string& text : texts) benchmark::DoNotOptimize(real_of(text));
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}
BENCHMARK(read_reals);

void read_integers(benchmark::State& state) {
    bench::Random random(1);
    std::vector<std::string> lines;
    for (int i = 0; i < kCount; ++i) lines.push_back("  " + std::to_string(random.integer(0, 1072)));
    for (auto _ : state) {
        for (const std::string& line : lines) benchmark::DoNotOptimize(integer_of(line));
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}
BENCHMARK(read_integers);

void write_reals(benchmark::State& state) {
    const std::vector<double> values = reals();
    char text[kLongestReal];
    for (auto _ : state) {
        for (double value : values) benchmark::DoNotOptimize(format_real(value, text));
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}
BENCHMARK(write_reals);

}  // namespace
