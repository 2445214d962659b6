// Writes the groups of an ASCII DXF file through one buffer.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace bench {

/// A number written in hexadecimal, as DXF names records.
struct Handle {
    std::uint64_t number = 0;
};

class TagWriter {
public:
    /// Throws std::runtime_error when the file cannot be made.
    TagWriter(const std::string& path, std::string_view line_end);

    /// Writes groups: put(10, x, 20, y). A value is a real, an integer, a text or a Handle.
    /// Throws std::runtime_error when the disk is full.
    template <class Value, class... More>
    void put(int code, const Value& value, const More&... more) {
        make_room(kLongestGroup);
        write_code(code);
        if constexpr (std::is_same_v<Value, Handle>)
            write_handle(value);
        else if constexpr (std::is_floating_point_v<Value>)
            write_real(value);
        else if constexpr (std::is_integral_v<Value>)
            write_integer(value);
        else
            write_text(value);
        write_line_end();
        if constexpr (sizeof...(More) > 0) put(more...);
    }

    Handle next_handle() { return {++last_handle_}; }

    /// Bytes put so far.
    std::uint64_t size() const { return flushed_ + used_; }

    /// Writes what is left. Throws std::runtime_error when that fails.
    void close();

private:
    static constexpr std::size_t kLongestGroup = 1024;

    void make_room(std::size_t bytes);
    void write_code(int code);
    void write_integer(long long value);
    void write_real(double value);
    void write_handle(Handle handle);
    void write_text(std::string_view text);
    void write_line_end() { write_text(line_end_); }

    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> file_;
    std::string path_;
    std::string line_end_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
    std::uint64_t flushed_ = 0;
    std::uint64_t last_handle_ = 0x20;
};

}  // namespace bench
