#include "drawing/tag_writer.hpp"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <stdexcept>

namespace bench {

TagWriter::TagWriter(const std::string& path, std::string_view line_end)
    : file_(std::fopen(path.c_str(), "wb")), path_(path), line_end_(line_end), buffer_(1 << 20) {
    if (!file_) throw std::runtime_error(path + " cannot be opened for writing");
}

void TagWriter::close() {
    make_room(buffer_.size());
    if (std::fclose(file_.release()) != 0) throw std::runtime_error(path_ + " could not be written");
}

void TagWriter::make_room(std::size_t bytes) {
    if (used_ + bytes <= buffer_.size()) return;
    if (std::fwrite(buffer_.data(), 1, used_, file_.get()) != used_)
        throw std::runtime_error(path_ + " could not be written");
    flushed_ += used_;
    used_ = 0;
}

void TagWriter::write_code(int code) {
    for (int width = 100; width > 1 && code < width; width /= 10) buffer_[used_++] = ' ';
    write_integer(code);
    write_line_end();
}

void TagWriter::write_integer(long long value) {
    char* begin = buffer_.data() + used_;
    used_ += std::to_chars(begin, begin + 32, value).ptr - begin;
}

// As CAD programs write reals: all digits that count, and always a point or an exponent.
void TagWriter::write_real(double value) {
    char* begin = buffer_.data() + used_;
    char* end = std::to_chars(begin, begin + 32, value).ptr;
    if (std::all_of(begin, end, [](char c) { return c == '-' || (c >= '0' && c <= '9'); })) {
        *end++ = '.';
        *end++ = '0';
    }
    used_ += end - begin;
}

void TagWriter::write_handle(Handle handle) {
    char* begin = buffer_.data() + used_;
    char* end = std::to_chars(begin, begin + 32, handle.number, 16).ptr;
    for (char* c = begin; c < end; ++c) {
        if (*c >= 'a') *c -= 'a' - 'A';
    }
    used_ += end - begin;
}

void TagWriter::write_text(std::string_view text) {
    text = text.substr(0, kLongestGroup / 2);
    std::memcpy(buffer_.data() + used_, text.data(), text.size());
    used_ += text.size();
}

}  // namespace bench
