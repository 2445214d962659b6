#include "veltrane/exchange/file_stream.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <utility>
#include <vector>

namespace veltrane {
namespace {

std::string reason(const std::string& what, const std::string& name, int error) {
    return what + " " + name + ": " + std::strerror(error);
}

bool is_directory(const std::string& name) {
    std::error_code ignored;
    return std::filesystem::is_directory(name, ignored);
}

/// A use of an open descriptor that the name stands for; -1 when it stands for none. Opening such a name
/// anew would start at the beginning of a file to which others append.
int open_descriptor_of(std::string_view name) {
    if (name == "/dev/stdout") return ::dup(STDOUT_FILENO);
    if (name == "/dev/stderr") return ::dup(STDERR_FILENO);
    constexpr std::string_view kFolder = "/dev/fd/";
    if (name.substr(0, kFolder.size()) != kFolder) return -1;
    int number = -1;
    std::from_chars(name.data() + kFolder.size(), name.data() + name.size(), number);
    return number < 0 ? -1 : ::dup(number);
}

}  // namespace

std::unique_ptr<std::istream> open_input_file(const std::string& name, std::string* problem) {
    if (is_directory(name)) {
        if (problem) *problem = reason("cannot read", name, EISDIR);
        return nullptr;
    }
    errno = 0;
    auto stream = std::make_unique<std::ifstream>(name, std::ios::binary);
    if (stream->good()) return stream;
    if (problem) *problem = reason("cannot open", name, errno ? errno : EIO);
    return nullptr;
}

/// The bytes on their way to a descriptor, and the names of the file they go to.
class OutputFile::Buffer : public std::streambuf {
public:
    explicit Buffer(const std::string& name) : name_(name), bytes_(kSize) {
        setp(bytes_.data(), bytes_.data() + bytes_.size());
        open();
    }
    ~Buffer() override { give_up(); }

    bool close(bool stream_is_good) {
        if (stream_is_good) {
            drain();
        } else {
            fail("writing was broken off for", EIO);
        }
        if (descriptor_ >= 0 && ::close(std::exchange(descriptor_, -1)) != 0) fail("cannot write", errno);
        if (problem_.empty() && !temporary_.empty()) {
            if (::rename(temporary_.c_str(), target_.c_str()) == 0) {
                temporary_.clear();
            } else {
                fail("cannot replace", errno);
            }
        }
        give_up();
        return problem_.empty();
    }
    const std::string& problem() const { return problem_; }

protected:
    int_type overflow(int_type byte) override {
        if (!drain()) return traits_type::eof();
        if (!traits_type::eq_int_type(byte, traits_type::eof())) sputc(traits_type::to_char_type(byte));
        return traits_type::not_eof(byte);
    }
    std::streamsize xsputn(const char* bytes, std::streamsize count) override {
        if (count > epptr() - pptr() && !drain()) return 0;
        if (count > epptr() - pptr()) return put(bytes, static_cast<std::size_t>(count)) ? count : 0;
        std::memcpy(pptr(), bytes, static_cast<std::size_t>(count));
        pbump(static_cast<int>(count));
        return count;
    }
    int sync() override { return problem_.empty() ? 0 : -1; }

private:
    static constexpr std::size_t kSize = 1 << 16;

    void open() {
        descriptor_ = open_descriptor_of(name_);
        if (descriptor_ >= 0) return;
        struct stat status {};
        const bool exists = ::stat(name_.c_str(), &status) == 0;
        if (exists && S_ISDIR(status.st_mode)) return fail("cannot write", EISDIR);
        if (exists && ::access(name_.c_str(), W_OK) != 0) return fail("cannot write", errno);
        if (exists && !S_ISREG(status.st_mode)) {
            descriptor_ = ::open(name_.c_str(), O_WRONLY | O_CLOEXEC);
            if (descriptor_ < 0) fail("cannot write", errno);
            return;
        }
        open_beside();
        if (exists && descriptor_ >= 0) (void)::fchmod(descriptor_, status.st_mode & 07777);
    }

    /// A link keeps its place: what it points to is replaced.
    void open_beside() {
        std::error_code ignored;
        target_ = std::filesystem::weakly_canonical(name_, ignored).string();
        if (target_.empty()) target_ = name_;
        for (int attempt = 0; attempt < 100; ++attempt) {
            temporary_ = target_ + "." + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".part";
            descriptor_ = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (descriptor_ >= 0) return;
            if (errno != EEXIST) break;
        }
        const int error = errno;
        temporary_.clear();
        fail("cannot write", error);
    }

    bool drain() {
        const auto count = static_cast<std::size_t>(pptr() - pbase());
        setp(bytes_.data(), bytes_.data() + bytes_.size());
        return put(bytes_.data(), count);
    }

    bool put(const char* bytes, std::size_t count) {
        while (count > 0 && problem_.empty()) {
            const ssize_t written = ::write(descriptor_, bytes, count);
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) {
                fail("cannot write", errno);
                break;
            }
            bytes += written;
            count -= static_cast<std::size_t>(written);
        }
        return problem_.empty();
    }

    /// Only the first failure is told.
    void fail(const char* what, int error) {
        if (problem_.empty()) problem_ = reason(what, name_, error);
    }

    void give_up() {
        if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
        if (!temporary_.empty()) ::unlink(std::exchange(temporary_, {}).c_str());
    }

    std::string name_;
    std::string target_;
    std::string temporary_;  // empty when the target is written directly, and once it has its name
    int descriptor_ = -1;
    std::string problem_;
    std::vector<char> bytes_;
};

OutputFile::OutputFile(const std::string& name)
    : std::ostream(nullptr), buffer_(std::make_unique<Buffer>(name)) {
    rdbuf(buffer_.get());
    if (!buffer_->problem().empty()) setstate(badbit);
}

OutputFile::~OutputFile() {
    rdbuf(nullptr);
}

bool OutputFile::Close() {
    const bool closed = buffer_->close(good());
    if (!closed) setstate(badbit);
    return closed;
}

const std::string& OutputFile::problem() const {
    return buffer_->problem();
}

}  // namespace veltrane
