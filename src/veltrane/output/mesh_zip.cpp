// The format is that of PKWARE's APPNOTE 6.3. assimp's archives cannot be had in memory and hold the time of
// day.
#include "veltrane/output/mesh_zip.hpp"

#include <zlib.h>

#include <initializer_list>
#include <limits>
#include <stdexcept>
#include <utility>

namespace veltrane {
namespace {

constexpr std::uint64_t kMostBytes = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t kFirstDay = 1 << 5 | 1;  // 1980-01-01, when the dates of archives begin

/// A number and the bytes that it takes.
struct Field {
    std::uint64_t value;
    int size;
};

std::string bytes_of(std::initializer_list<Field> fields) {
    std::string bytes;
    for (const Field& field : fields) {
        for (int i = 0; i < field.size; ++i) bytes += static_cast<char>(field.value >> (8 * i) & 0xFF);
    }
    return bytes;
}

}  // namespace

/// Deflates a file. zlib asks for counts that fit 32 bits, so pieces are handed on as they come.
struct ZipWriter::Stream {
    z_stream state{};
    bool is_open = false;

    ~Stream() { close(); }
    void open() {
        state = {};
        const int windowless = -MAX_WBITS;  // no header of its own
        if (deflateInit2(&state, Z_DEFAULT_COMPRESSION, Z_DEFLATED, windowless, 8, Z_DEFAULT_STRATEGY) !=
            Z_OK) {
            throw std::runtime_error("cannot compress");
        }
        is_open = true;
    }
    void close() {
        if (std::exchange(is_open, false)) deflateEnd(&state);
    }
    void put(std::string_view bytes, int flush, std::string& result) {
        char buffer[1 << 14];
        state.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
        state.avail_in = static_cast<uInt>(bytes.size());
        do {
            state.next_out = reinterpret_cast<Bytef*>(buffer);
            state.avail_out = sizeof buffer;
            deflate(&state, flush);
            result.append(buffer, sizeof buffer - state.avail_out);
        } while (state.avail_out == 0);
    }
};

ZipWriter::ZipWriter(std::ostream& out) : out_(out), stream_(std::make_unique<Stream>()) {}

ZipWriter::~ZipWriter() = default;

void ZipWriter::begin_file(std::string name) {
    end_file();
    entries_.emplace_back().name = std::move(name);
    stream_->open();
}

void ZipWriter::write(std::string_view bytes) {
    Entry& entry = entries_.back();
    entry.size += bytes.size();
    entry.checksum = static_cast<std::uint32_t>(
        crc32(entry.checksum, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
    stream_->put(bytes, Z_NO_FLUSH, entry.bytes);
}

void ZipWriter::end_file() {
    if (!stream_->is_open) return;
    Entry& entry = entries_.back();
    stream_->put({}, Z_FINISH, entry.bytes);
    stream_->close();
    entry.offset = position_;
    entry.compressed_size = entry.bytes.size();
    put_header(entry, false);
    out_ << entry.bytes;
    position_ += entry.compressed_size;
    if (entry.size > kMostBytes || position_ > kMostBytes) out_.setstate(std::ios::failbit);
    entry.bytes = {};
}

void ZipWriter::put_header(const Entry& entry, bool is_central) {
    constexpr std::uint64_t kVersion = 20, kDeflated = 8;
    std::string header =
        is_central ? bytes_of({{0x02014B50, 4}, {kVersion, 2}}) : bytes_of({{0x04034B50, 4}});
    header += bytes_of({{kVersion, 2},
                        {0, 2},
                        {kDeflated, 2},
                        {0, 2},
                        {kFirstDay, 2},
                        {entry.checksum, 4},
                        {entry.compressed_size, 4},
                        {entry.size, 4},
                        {entry.name.size(), 2},
                        {0, 2}});
    if (is_central) header += bytes_of({{0, 2}, {0, 2}, {0, 2}, {0, 4}, {entry.offset, 4}});
    header += entry.name;
    out_ << header;
    position_ += header.size();
}

void ZipWriter::finish() {
    end_file();
    const std::uint64_t start = position_;
    for (const Entry& entry : entries_) put_header(entry, true);
    const std::uint64_t count = entries_.size();
    out_ << bytes_of({{0x06054B50, 4},
                      {0, 2},
                      {0, 2},
                      {count, 2},
                      {count, 2},
                      {position_ - start, 4},
                      {start, 4},
                      {0, 2}});
}

}  // namespace veltrane
