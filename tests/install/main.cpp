// The program of README.md: prints the shapes of a drawing.
#include <iostream>
#include <veltrane/control/reader.hpp>
#include <veltrane/kernel/topo/dump.hpp>

int main(int, char** words) {
    veltrane::DxfControl_Reader reader;
    if (reader.ReadFile(words[1]) != veltrane::ExchangeStatus::Done) return 1;
    reader.TransferRoots();
    veltrane::kernel::dump(std::cout, reader.OneShape());
}
