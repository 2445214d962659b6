// Writing ZIP archives. Internal to the folder.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane {

/// A ZIP archive of deflated files, made in order and in one go; equal contents give equal bytes. What is
/// being written is kept in memory, compressed. Archives end at 4 GB: then the stream is set bad.
class ZipWriter {
public:
    explicit ZipWriter(std::ostream& out);
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    void begin_file(std::string name);
    void write(std::string_view bytes);
    /// Ends the last file and the archive.
    void finish();

private:
    struct Stream;
    struct Entry {
        std::string name;
        std::uint64_t offset = 0, size = 0;
        std::uint32_t checksum = 0;
        std::string bytes;  ///< compressed; until they are written
        std::uint64_t compressed_size = 0;
    };

    void end_file();
    void put_header(const Entry& entry, bool is_central);

    std::ostream& out_;
    std::vector<Entry> entries_;
    std::unique_ptr<Stream> stream_;
    std::uint64_t position_ = 0;
};

}  // namespace veltrane
