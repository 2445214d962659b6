// Reads a drawing into the full model and, if asked, writes it again.
//
//     read_drawing FILE [--write OUT]
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/dxf_file.hpp"
#include "veltrane/file/work_library.hpp"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

using namespace veltrane;

double seconds_since(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void report(const char* what, const std::string& file, double seconds) {
    const double megabytes = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
    std::printf("%s %.4f s, %.1f MB/s\n", what, seconds, megabytes / seconds);
}

Ref<ExchangeModel> read(const std::string& file) {
    Ref<ExchangeModel> model;
    const auto start = std::chrono::steady_clock::now();
    if (DxfFile_WorkLibrary().ReadFile(file, model, DxfFile::Protocol()) != 0) return nullptr;
    report("read", file, seconds_since(start));
    return model;
}

std::size_t problems(const ExchangeModel& model) {
    std::size_t count = model.GlobalCheck().Fails().size() + model.GlobalCheck().Warnings().size();
    for (int number = 1; number <= model.NbEntities(); ++number) {
        if (const Check* check = model.CheckOf(number))
            count += check->Fails().size() + check->Warnings().size();
    }
    return count;
}

bool write(const Ref<ExchangeModel>& model, const std::string& file) {
    WriteContext context{file, model, {}};
    const auto start = std::chrono::steady_clock::now();
    if (!DxfFile_WorkLibrary().WriteFile(context)) return false;
    report("write", file, seconds_since(start));
    return true;
}

}  // namespace

int main(int count, char** words) {
    const bool writes = count == 4 && std::string(words[2]) == "--write";
    if (count != 2 && !writes) {
        std::fputs("usage: read_drawing FILE [--write OUT]\n", stderr);
        return 2;
    }
    DxfFile::Init();
    StaticParameters::SetText("write.dxf.version", "Undef");  // what was read, in its own version
    const Ref<ExchangeModel> model = read(words[1]);
    if (!model) {
        std::fprintf(stderr, "read_drawing: %s cannot be read\n", words[1]);
        return 1;
    }
    std::printf("%d records, %zu fails and warnings\n", model->NbEntities(), problems(*model));
    if (writes && !write(model, words[3])) {
        std::fprintf(stderr, "read_drawing: %s cannot be written\n", words[3]);
        return 1;
    }
    // The system takes the memory back at once: taking the model apart first is no part of reading.
    std::fflush(stdout);
    std::_Exit(0);
}
