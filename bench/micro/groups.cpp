// The group reader on text in memory.
#include "veltrane/file/file_reader.hpp"
#include "veltrane/section/model.hpp"

#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

namespace {

using namespace veltrane;

constexpr const char* kLine =
    "  0\nLINE\n  5\n2A7F\n330\n1F\n100\nAcDbEntity\n  8\nWALLS\n100\nAcDbLine\n"
    " 10\n4311.273469018247\n 20\n882.1043300117\n 30\n0.0\n 11\n4367.90122784003\n 21\n901.55\n 31\n0.0\n";

bool is_coordinate(int code) {
    return code >= 10 && code < 40;
}

void read_groups(benchmark::State& state) {
    std::string text;
    for (int i = 0; i < 10000; ++i) text += kLine;
    for (auto _ : state) {
        std::istringstream stream(text);
        DxfFile_FileReader reader(make<DxfSection_Model>());
        double sum = 0;
        for (reader.Next(stream); reader.HasGroup(); reader.Next(stream)) {
            if (is_coordinate(reader.Code())) sum += reader.ReadReal(stream);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(read_groups)->Unit(benchmark::kMillisecond);

}  // namespace
