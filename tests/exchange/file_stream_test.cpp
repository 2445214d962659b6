#include "veltrane/exchange/file_stream.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace veltrane {
namespace {

namespace fs = std::filesystem;

class FileStream : public testing::Test {
protected:
    FileStream() {
        std::string pattern = (fs::temp_directory_path() / "veltrane-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
        folder_ = pattern;
    }
    ~FileStream() override { fs::remove_all(folder_); }

    std::string name(const char* file) const { return (folder_ / file).string(); }
    static std::string content(const std::string& name) {
        std::ifstream file(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::size_t file_count() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), {}));
    }

    fs::path folder_;
};

TEST_F(FileStream, AFileAppearsWholeOrNotAtAll) {
    std::ofstream(name("a.dxf")) << "old";
    {
        OutputFile file(name("a.dxf"));
        file << "new" << std::flush;
        EXPECT_EQ(content(name("a.dxf")), "old");
    }
    EXPECT_EQ(content(name("a.dxf")), "old");
    EXPECT_EQ(file_count(), 1u);

    OutputFile file(name("a.dxf"));
    const std::string large(1'000'000, 'x');  // passes the buffer by
    file << "head" << large << "tail";
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(content(name("a.dxf")), "head" + large + "tail");
    EXPECT_EQ(file_count(), 1u);
}

TEST_F(FileStream, ManySmallWritesKeepTheirOrder) {
    std::string expected;
    OutputFile file(name("b.dxf"));
    for (int i = 0; i < 40000; ++i) {
        const std::string line = std::to_string(i) + "\n";
        expected += line;
        file << line;
        file.put('.');
        expected += '.';
    }
    ASSERT_TRUE(file.Close());
    EXPECT_EQ(content(name("b.dxf")), expected);
}

TEST_F(FileStream, ALinkKeepsItsPlaceAndAFileItsMode) {
    std::ofstream(name("target.dxf")) << "old";
    ::chmod(name("target.dxf").c_str(), 0640);
    fs::create_symlink("target.dxf", name("link.dxf"));
    OutputFile file(name("link.dxf"));
    file << "new";
    ASSERT_TRUE(file.Close());
    EXPECT_TRUE(fs::is_symlink(name("link.dxf")));
    EXPECT_EQ(content(name("target.dxf")), "new");
    struct stat status {};
    ::stat(name("target.dxf").c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST_F(FileStream, FailuresAreToldAndLeaveNothing) {
    struct Row {
        std::string target;
        const char* problem;
    };
    for (const Row& row : {Row{folder_.string(), "Is a directory"},
                           Row{name("no/such/folder.dxf"), "No such file or directory"},
                           Row{"/dev/full", "No space left on device"}}) {
        OutputFile file(row.target);
        for (int i = 0; i < 100'000 && file; ++i) file << "some text\n";
        EXPECT_FALSE(file.Close()) << row.target;
        EXPECT_NE(file.problem().find(row.problem), std::string::npos) << file.problem();
        EXPECT_NE(file.problem().find(row.target), std::string::npos) << file.problem();
    }
    EXPECT_EQ(file_count(), 0u);
}

TEST_F(FileStream, AFailureInTheLastBlockIsNotMissed) {
    OutputFile file("/dev/full");
    file << "short" << std::flush;
    EXPECT_TRUE(file.good());
    EXPECT_FALSE(file.Close());
}

TEST_F(FileStream, AFailedStreamIsNoFile) {
    OutputFile file(name("c.dxf"));
    file << "half";
    file.setstate(std::ios::failbit);
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(file_count(), 0u);
}

TEST_F(FileStream, InputThatIsNoFile) {
    for (const std::string& bad : {name("missing.dxf"), folder_.string()}) {
        std::string problem;
        EXPECT_EQ(open_input_file(bad, &problem), nullptr);
        EXPECT_NE(problem.find(bad), std::string::npos) << problem;
    }
}

}  // namespace
}  // namespace veltrane
