#include <iostream>
#include <veltrane/base/text.hpp>

int main() {
    std::cout << veltrane::Text("installed and running") << '\n';
}
