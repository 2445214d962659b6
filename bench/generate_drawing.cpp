// Writes a valid ASCII DXF drawing of any size. Equal arguments give equal bytes; memory stays bounded.
#include "drawing/entities.hpp"
#include "drawing/random.hpp"
#include "drawing/skeleton.hpp"
#include "drawing/tag_writer.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace bench {

namespace {

constexpr const char* kUsage =
    "usage: generate_drawing --kind KIND --size-mb MB --out FILE [--seed N] [--eol lf|crlf] [--blocks N]\n"
    "\n"
    "KIND:\n"
    "  lines    R12: lines only, without handles\n"
    "  mix      R2000: lines, polylines with bulges, arcs, circles, texts, points, inserts; some extended "
    "data\n"
    "  splines  R2000: splines (plain, rational, with fit points) and hatches with curved edges\n"
    "  mesh     R2000: polyface meshes and 3D faces\n"
    "  blocks   R2000: N blocks nested up to 16 deep and inserts of them, with scales, arrays and "
    "attributes\n"
    "  inserts  R2000: one block of a hundred entities, turned and moved by every insert, never scaled\n"
    "\n"
    "A megabyte is 1,000,000 bytes; the drawing ends with the first entity past the size. Without --blocks a "
    "mix\n"
    "has 50 blocks, and a drawing of blocks 100 per megabyte up to 1000, beyond 100 megabytes 10 per "
    "megabyte.\n";

struct Options {
    std::string kind;
    double size_mb = 0;
    std::string out;
    std::uint64_t seed = 1;
    std::string line_end = "\n";
    std::optional<int> blocks;
};

// At 10 and 100 MB equally many, so that the inserts alone differ; beyond, the blocks grow with the file.
int default_blocks(double size_mb) {
    return static_cast<int>(std::max(std::min(1000.0, 100 * size_mb), 10 * size_mb));
}

class Drawing {
public:
    explicit Drawing(const Options& options)
        : options_(options),
          out_(options.out, options.line_end),
          random_(options.seed),
          make_(out_, random_),
          wanted_(static_cast<std::uint64_t>(options.size_mb * 1e6)) {}

    void write() {
        if (options_.kind == "lines")
            write_r12();
        else
            write_r2000();
        out_.put(0, "EOF");
        out_.close();
    }

private:
    static constexpr int kChain = 16;  // depth to which blocks are nested
    static constexpr int kAttributeEvery = 10;

    void write_r12() {
        put_r12_opening(out_);
        out_.put(0, "SECTION", 2, "BLOCKS", 0, "ENDSEC", 0, "SECTION", 2, "ENTITIES");
        while (out_.size() < wanted_) make_.r12_line();
        out_.put(0, "ENDSEC");
    }

    void write_r2000() {
        name_blocks();
        const Handle plot_style = out_.next_handle();
        put_r2000_opening(out_, blocks_, plot_style);
        write_blocks();
        out_.put(0, "SECTION", 2, "ENTITIES");
        make_.enter(blocks_[0], 10000);
        while (out_.size() < wanted_) write_entities();
        out_.put(0, "ENDSEC");
        put_objects(out_, blocks_[0], blocks_[1], plot_style);
    }

    void name_blocks() {
        int count = 0;
        if (options_.kind == "mix") count = 50;
        if (options_.kind == "blocks") count = default_blocks(options_.size_mb);
        if (options_.kind == "inserts") count = 1;
        if (count > 1) count = options_.blocks.value_or(count);
        blocks_ = {{"*Model_Space", {}}, {"*Paper_Space", {}}};
        for (int i = 0; i < count; ++i) blocks_.push_back({"BLK_" + std::to_string(i), {}});
    }

    int user_blocks() const { return static_cast<int>(blocks_.size()) - 2; }
    const BlockName& user_block(int i) const { return blocks_[2 + i]; }
    bool has_attribute(int i) const { return options_.kind == "blocks" && i % kAttributeEvery == 9; }

    void write_blocks() {
        out_.put(0, "SECTION", 2, "BLOCKS");
        for (int i = -2; i < user_blocks(); ++i) {
            const bool tagged = i >= 0 && has_attribute(i);
            put_block_begin(out_, user_block(i), tagged);
            if (i >= 0) fill_block(i);
            put_block_end(out_, user_block(i));
        }
        out_.put(0, "ENDSEC");
    }

    void fill_block(int i) {
        make_.enter(user_block(i), 100);
        if (options_.kind == "inserts") return fill_heavy_block();
        make_.line();
        make_.line();
        make_.circle();
        make_.arc();
        make_.light_polyline();
        if (has_attribute(i)) make_.attribute_definition();
        if (options_.kind == "blocks" && i % kChain != 0) make_.insert(user_block(i - 1).name, false);
    }

    void fill_heavy_block() {
        for (int count = 0; count < 100; count += 4) {
            make_.line();
            make_.light_polyline();
            make_.circle();
            make_.arc();
        }
    }

    void write_entities() {
        if (options_.kind == "mix") {
            write_mixed();
        } else if (options_.kind == "splines") {
            random_.chance(0.6) ? make_.spline() : make_.hatch();
        } else if (options_.kind == "mesh") {
            make_.polyface_mesh();
            for (int left = random_.integer(0, 300); left > 0; --left) make_.face();
        } else if (options_.kind == "inserts") {
            make_.plain_insert(user_block(0).name);
        } else {
            insert_any();
        }
    }

    void insert_any() {
        if (user_blocks() <= 0) return make_.line();
        const int i = random_.integer(0, user_blocks());
        make_.insert(user_block(i).name, has_attribute(i));
    }

    void write_mixed() {
        const double kind = random_.unit();
        if (kind < 0.40)
            make_.line();
        else if (kind < 0.55)
            make_.light_polyline();
        else if (kind < 0.67)
            make_.arc();
        else if (kind < 0.77)
            make_.circle();
        else if (kind < 0.88)
            make_.text();
        else if (kind < 0.93)
            make_.point();
        else
            insert_any();
        if (random_.chance(0.03)) make_.extended_data();
    }

    const Options& options_;
    TagWriter out_;
    Random random_;
    EntityMaker make_;
    std::uint64_t wanted_;
    std::vector<BlockName> blocks_;
};

// The options, or nothing when the command line makes no sense.
std::optional<Options> read_options(int count, char** words) {
    Options options;
    for (int i = 1; i < count; i += 2) {
        if (i + 1 == count) return std::nullopt;
        const std::string name = words[i], value = words[i + 1];
        if (name == "--kind")
            options.kind = value;
        else if (name == "--size-mb")
            options.size_mb = std::strtod(value.c_str(), nullptr);
        else if (name == "--out")
            options.out = value;
        else if (name == "--seed")
            options.seed = std::strtoull(value.c_str(), nullptr, 10);
        else if (name == "--eol" && (value == "lf" || value == "crlf"))
            options.line_end = value == "lf" ? "\n" : "\r\n";
        else if (name == "--blocks")
            options.blocks = std::atoi(value.c_str());
        else
            return std::nullopt;
    }
    for (const char* kind : {"lines", "mix", "splines", "mesh", "blocks", "inserts"}) {
        if (options.kind == kind && options.size_mb > 0 && !options.out.empty()) return options;
    }
    return std::nullopt;
}

}  // namespace

}  // namespace bench

int main(int count, char** words) {
    const std::optional<bench::Options> options = bench::read_options(count, words);
    if (!options) {
        std::fputs(bench::kUsage, stderr);
        return 2;
    }
    try {
        bench::Drawing(*options).write();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "generate_drawing: %s\n", error.what());
        return 1;
    }
    return 0;
}
