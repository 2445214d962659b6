// What reading a DXF file costs before anything is kept: maps the file into memory, splits lines, converts
// every group code and every real. Readers are measured against it.
//
//     floor FILE
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Codes whose values are reals.
bool is_real(int code) {
    return (code >= 10 && code <= 59) || (code >= 110 && code <= 149) || (code >= 210 && code <= 239) ||
           (code >= 460 && code <= 469) || (code >= 1010 && code <= 1059);
}

struct Totals {
    long groups = 0;
    long reals = 0;
    long faults = 0;
    double sum = 0;  // printed, so that no conversion can be left out
};

class Lines {
public:
    explicit Lines(std::string_view text) : next_(text.data()), end_(text.data() + text.size()) {}

    bool read(std::string_view& line) {
        if (next_ == end_) return false;
        const char* begin = next_;
        const void* found = std::memchr(begin, '\n', end_ - begin);
        const char* end = found ? static_cast<const char*>(found) : end_;
        next_ = found ? end + 1 : end_;
        if (end > begin && end[-1] == '\r') --end;
        line = std::string_view(begin, end - begin);
        return true;
    }

private:
    const char* next_;
    const char* end_;
};

template <class Number>
bool convert(std::string_view line, Number& number) {
    const std::size_t first = line.find_first_not_of(' ');
    if (first == line.npos) return false;
    return std::from_chars(line.data() + first, line.data() + line.size(), number).ec == std::errc();
}

Totals scan(std::string_view text) {
    Totals totals;
    Lines lines(text);
    std::string_view line;
    while (lines.read(line)) {
        int code = 0;
        totals.faults += !convert(line, code);
        if (!lines.read(line)) break;
        ++totals.groups;
        if (!is_real(code)) {
            totals.sum += code;
            continue;
        }
        double real = 0;
        totals.faults += !convert(line, real);
        totals.sum += real;
        ++totals.reals;
    }
    return totals;
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::fputs("usage: floor FILE\n", stderr);
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    const int file = open(words[1], O_RDONLY);
    struct stat status = {};
    if (file < 0 || fstat(file, &status) != 0 || status.st_size == 0) {
        std::perror(words[1]);
        return 1;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    const void* bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (bytes == MAP_FAILED) {
        std::perror(words[1]);
        return 1;
    }
    const Totals totals = scan(std::string_view(static_cast<const char*>(bytes), size));
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    std::printf("read %.4f s, %.1f MB/s\n", elapsed.count(),
                static_cast<double>(size) / 1e6 / elapsed.count());
    std::printf("%ld groups, %ld reals, %ld faults, sum %.9g\n", totals.groups, totals.reals, totals.faults,
                totals.sum);
    return 0;
}
