// Reads a drawing, makes shapes of it and, if asked, triangles of these.
//
//     translate_drawing FILE [--mesh]
#include "veltrane/control/controller.hpp"
#include "veltrane/control/reader.hpp"
#include "veltrane/kernel/mesh/mesh.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace veltrane;

/// Runs some work and tells how long it took, in seconds.
template <class Work>
double timed(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double peak_megabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1e3;
}

void report_mesh(const kernel::Shape& shape) {
    kernel::Mesh mesh;
    const double seconds = timed([&] { mesh = kernel::mesh(shape); });
    std::printf("mesh %.4f s, %zu faces, %zu triangles, %.2f us a face, peak %.0f MB\n", seconds,
                mesh.faces.size(), mesh.triangles.size(),
                mesh.faces.empty() ? 0 : seconds * 1e6 / static_cast<double>(mesh.faces.size()),
                peak_megabytes());
}

}  // namespace

int main(int count, char** words) {
    const bool with_mesh = count == 3 && std::string(words[2]) == "--mesh";
    if (count != 2 && !with_mesh) {
        std::fputs("usage: translate_drawing FILE [--mesh]\n", stderr);
        return 2;
    }
    DxfControl_Reader reader;
    ExchangeStatus status{};
    const double read = timed([&] { status = reader.ReadFile(words[1]); });
    if (status != ExchangeStatus::Done) {
        std::fprintf(stderr, "translate_drawing: %s cannot be read\n", words[1]);
        return 1;
    }
    std::printf("read %.4f s, %d records, peak %.0f MB\n", read, reader.Model()->NbEntities(),
                peak_megabytes());
    const double translate = timed([&] { reader.TransferRoots(); });
    const kernel::Shape shape = reader.OneShape();
    std::printf("translate %.4f s, %.2f x reading, %zu shapes, peak %.0f MB\n", translate, translate / read,
                shape.is_null() ? 0 : kernel::child_count(shape), peak_megabytes());
    if (with_mesh) report_mesh(shape);
    // The system takes the memory back at once: taking everything apart first is no part of the work.
    std::fflush(stdout);
    std::_Exit(0);
}
