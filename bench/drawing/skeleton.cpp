#include "drawing/skeleton.hpp"

namespace bench {

namespace {

constexpr double kExtent = 10000;
constexpr std::string_view kHandleSeed = "10000000";  // above the handles of any file below some 20 GB

void put_header(TagWriter& out, std::string_view version) {
    out.put(999, "benchmark drawing", 0, "SECTION", 2, "HEADER");
    out.put(9, "$ACADVER", 1, version, 9, "$DWGCODEPAGE", 3, "ANSI_1252");
    out.put(9, "$INSBASE", 10, 0.0, 20, 0.0, 30, 0.0);
    out.put(9, "$EXTMIN", 10, 0.0, 20, 0.0, 30, 0.0);
    out.put(9, "$EXTMAX", 10, kExtent, 20, kExtent, 30, kExtent);
    out.put(9, "$LTSCALE", 40, 1.0, 9, "$TEXTSTYLE", 7, "Standard", 9, "$CLAYER", 8, "0");
    if (version != "AC1009") out.put(9, "$INSUNITS", 70, 4, 9, "$HANDSEED", 5, kHandleSeed);
    out.put(0, "ENDSEC");
}

Handle put_table(TagWriter& out, std::string_view name, std::size_t entries) {
    const Handle table = out.next_handle();
    out.put(0, "TABLE", 2, name, 5, table, 330, 0, 100, "AcDbSymbolTable", 70, entries);
    return table;
}

Handle put_entry(TagWriter& out, std::string_view type, Handle table, std::string_view marker,
                 std::string_view name, int handle_code = 5) {
    const Handle entry = out.next_handle();
    out.put(0, type, handle_code, entry, 330, table, 100, "AcDbSymbolTableRecord", 100, marker, 2, name);
    return entry;
}

void put_viewports(TagWriter& out) {
    const Handle table = put_table(out, "VPORT", 1);
    put_entry(out, "VPORT", table, "AcDbViewportTableRecord", "*Active");
    out.put(70, 0, 10, 0.0, 20, 0.0, 11, 1.0, 21, 1.0, 12, 5000.0, 22, 5000.0, 13, 0.0, 23, 0.0);
    out.put(14, 10.0, 24, 10.0, 15, 10.0, 25, 10.0, 16, 0.0, 26, 0.0, 36, 1.0, 17, 0.0, 27, 0.0, 37, 0.0);
    out.put(40, kExtent, 41, 1.5, 42, 50.0, 43, 0.0, 44, 0.0, 50, 0.0, 51, 0.0);
    out.put(71, 0, 72, 1000, 73, 1, 74, 3, 75, 0, 76, 0, 77, 0, 78, 0, 0, "ENDTAB");
}

void put_line_types(TagWriter& out) {
    const Handle table = put_table(out, "LTYPE", 3);
    for (const char* name : {"ByBlock", "ByLayer", "Continuous"}) {
        put_entry(out, "LTYPE", table, "AcDbLinetypeTableRecord", name);
        out.put(70, 0, 3, "", 72, 65, 73, 0, 40, 0.0);
    }
    out.put(0, "ENDTAB");
}

void put_layers(TagWriter& out, Handle plot_style) {
    const Handle table = put_table(out, "LAYER", kLayers.size());
    for (std::size_t i = 0; i < kLayers.size(); ++i) {
        put_entry(out, "LAYER", table, "AcDbLayerTableRecord", kLayers[i]);
        out.put(70, 0, 62, i % 7 + 1, 6, "Continuous", 370, -3, 390, plot_style);
    }
    out.put(0, "ENDTAB");
}

void put_text_styles(TagWriter& out) {
    const Handle table = put_table(out, "STYLE", 1);
    put_entry(out, "STYLE", table, "AcDbTextStyleTableRecord", "Standard");
    out.put(70, 0, 40, 0.0, 41, 1.0, 50, 0.0, 71, 0, 42, 2.5, 3, "txt", 4, "", 0, "ENDTAB");
}

void put_small_tables(TagWriter& out) {
    for (const char* name : {"VIEW", "UCS"}) {
        put_table(out, name, 0);
        out.put(0, "ENDTAB");
    }
    const Handle applications = put_table(out, "APPID", 2);
    for (const char* name : {"ACAD", "BENCH"}) {
        put_entry(out, "APPID", applications, "AcDbRegAppTableRecord", name);
        out.put(70, 0);
    }
    out.put(0, "ENDTAB");
    const Handle dimensions = put_table(out, "DIMSTYLE", 1);
    out.put(100, "AcDbDimStyleTable");
    put_entry(out, "DIMSTYLE", dimensions, "AcDbDimStyleTableRecord", "Standard", 105);
    out.put(70, 0, 0, "ENDTAB");
}

void put_block_records(TagWriter& out, std::vector<BlockName>& blocks) {
    const Handle table = put_table(out, "BLOCK_RECORD", blocks.size());
    for (BlockName& block : blocks)
        block.record = put_entry(out, "BLOCK_RECORD", table, "AcDbBlockTableRecord", block.name);
    out.put(0, "ENDTAB");
}

void put_layout(TagWriter& out, Handle layout, Handle owner, std::string_view name, int order, Handle block) {
    out.put(0, "LAYOUT", 5, layout, 330, owner, 100, "AcDbPlotSettings", 1, "", 2, "none_device", 4, "", 6,
            "");
    out.put(40, 0.0, 41, 0.0, 42, 0.0, 43, 0.0, 44, 0.0, 45, 0.0, 46, 0.0, 47, 0.0, 48, 0.0, 49, 0.0);
    out.put(140, 0.0, 141, 0.0, 142, 1.0, 143, 1.0, 70, order == 0 ? 1024 : 0, 72, 0, 73, 0, 74, 5);
    out.put(7, "", 75, 16, 147, 1.0, 148, 0.0, 149, 0.0);
    out.put(100, "AcDbLayout", 1, name, 70, 1, 71, order, 10, 0.0, 20, 0.0, 11, 420.0, 21, 297.0);
    out.put(12, 0.0, 22, 0.0, 32, 0.0, 14, 0.0, 24, 0.0, 34, 0.0, 15, 0.0, 25, 0.0, 35, 0.0, 146, 0.0);
    out.put(13, 0.0, 23, 0.0, 33, 0.0, 16, 1.0, 26, 0.0, 36, 0.0, 17, 0.0, 27, 1.0, 37, 0.0, 76, 0, 330,
            block);
}

void put_dictionary(TagWriter& out, Handle dictionary, Handle owner) {
    out.put(0, "DICTIONARY", 5, dictionary, 330, owner, 100, "AcDbDictionary", 281, 1);
}

}  // namespace

void put_r12_opening(TagWriter& out) {
    put_header(out, "AC1009");
    out.put(0, "SECTION", 2, "TABLES", 0, "TABLE", 2, "LTYPE", 70, 1, 0, "LTYPE", 2, "CONTINUOUS", 70, 0);
    out.put(3, "Solid line", 72, 65, 73, 0, 40, 0.0, 0, "ENDTAB", 0, "TABLE", 2, "LAYER", 70, kLayers.size());
    for (std::size_t i = 0; i < kLayers.size(); ++i)
        out.put(0, "LAYER", 2, kLayers[i], 70, 0, 62, i % 7 + 1, 6, "CONTINUOUS");
    out.put(0, "ENDTAB", 0, "TABLE", 2, "STYLE", 70, 1, 0, "STYLE", 2, "STANDARD", 70, 0);
    out.put(40, 0.0, 41, 1.0, 50, 0.0, 71, 0, 42, 2.5, 3, "txt", 4, "", 0, "ENDTAB", 0, "ENDSEC");
}

void put_r2000_opening(TagWriter& out, std::vector<BlockName>& blocks, Handle plot_style) {
    put_header(out, "AC1015");
    out.put(0, "SECTION", 2, "CLASSES", 0, "ENDSEC", 0, "SECTION", 2, "TABLES");
    put_viewports(out);
    put_line_types(out);
    put_layers(out, plot_style);
    put_text_styles(out);
    put_small_tables(out);
    put_block_records(out, blocks);
    out.put(0, "ENDSEC");
}

void put_block_begin(TagWriter& out, const BlockName& block, bool has_attributes) {
    out.put(0, "BLOCK", 5, out.next_handle(), 330, block.record, 100, "AcDbEntity", 8, "0");
    out.put(100, "AcDbBlockBegin", 2, block.name, 70, has_attributes ? 2 : 0, 10, 0.0, 20, 0.0, 30, 0.0);
    out.put(3, block.name, 1, "");
}

void put_block_end(TagWriter& out, const BlockName& block) {
    out.put(0, "ENDBLK", 5, out.next_handle(), 330, block.record, 100, "AcDbEntity", 8, "0");
    out.put(100, "AcDbBlockEnd");
}

void put_objects(TagWriter& out, const BlockName& model, const BlockName& paper, Handle plot_style) {
    const Handle root = out.next_handle(), groups = out.next_handle(), layouts = out.next_handle(),
                 plot_styles = out.next_handle(), model_layout = out.next_handle(),
                 paper_layout = out.next_handle();
    out.put(0, "SECTION", 2, "OBJECTS");
    put_dictionary(out, root, Handle{});
    out.put(3, "ACAD_GROUP", 350, groups, 3, "ACAD_LAYOUT", 350, layouts, 3, "ACAD_PLOTSTYLENAME", 350,
            plot_styles);
    put_dictionary(out, groups, root);
    put_dictionary(out, layouts, root);
    out.put(3, "Model", 350, model_layout, 3, "Layout1", 350, paper_layout);
    out.put(0, "ACDBDICTIONARYWDFLT", 5, plot_styles, 330, root, 100, "AcDbDictionary", 281, 1);
    out.put(3, "Normal", 350, plot_style, 100, "AcDbDictionaryWithDefault", 340, plot_style);
    out.put(0, "ACDBPLACEHOLDER", 5, plot_style, 330, plot_styles);
    put_layout(out, model_layout, layouts, "Model", 0, model.record);
    put_layout(out, paper_layout, layouts, "Layout1", 1, paper.record);
    out.put(0, "ENDSEC");
}

}  // namespace bench
