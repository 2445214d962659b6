// The state of one transfer between records and shapes.
#pragma once

#include "veltrane/data/block_library.hpp"
#include "veltrane/data/code_page.hpp"
#include "veltrane/exchange/read_process.hpp"
#include "veltrane/exchange/record_map.hpp"
#include "veltrane/exchange/write_process.hpp"
#include "veltrane/kernel/topo/shape.hpp"
#include "veltrane/section/model.hpp"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace veltrane {

/// Free geometry in the order in which it was built: points (kernel::FreePoint), curves (kernel::Curve), and,
/// for a block, one such sequence for each of its entities.
using DxfData_GeometrySequence = Sequence<Ref<Transient>>;

/// How the last call of a translator or maker ended: eight flags for what was done, eight for what failed.
/// The combined values ask for any flag of a kind.
enum class DxfData_Status : std::uint32_t {
    Ok = 0,  ///< no flag is set
    Done1 = 1u << 0,
    Done2 = 1u << 1,
    Done3 = 1u << 2,
    Done4 = 1u << 3,
    Done5 = 1u << 4,
    Done6 = 1u << 5,
    Done7 = 1u << 6,
    Done8 = 1u << 7,
    Fail1 = 1u << 8,
    Fail2 = 1u << 9,
    Fail3 = 1u << 10,
    Fail4 = 1u << 11,
    Fail5 = 1u << 12,
    Fail6 = 1u << 13,
    Fail7 = 1u << 14,
    Fail8 = 1u << 15,
    Done = 0x00FF,
    Fail = 0xFF00,
};

/// Objects filed under other objects, in the order in which they came. Keys are compared by identity.
class DxfData_ObjectMap {
public:
    using Entry = std::pair<Ref<const Transient>, Ref<Transient>>;

    /// Null when nothing is filed under the key.
    Ref<Transient> Find(const Transient* key) const;
    /// Replaces what was filed under the key; its place stays.
    void Set(const Ref<const Transient>& key, Ref<Transient> value);
    int Length() const { return static_cast<int>(entries_.size()); }
    const std::vector<Entry>& entries() const { return entries_; }

private:
    std::vector<Entry> entries_;
    std::unordered_map<const Transient*, std::size_t> index_;
};

/// One context serves one transfer, on one thread.
class DxfData_TransferContext : public Typed<DxfData_TransferContext, Transient> {
public:
    static constexpr const char* kTypeName = "DxfData_TransferContext";

    /// A context with both processes, for trials.
    DxfData_TransferContext();
    /// For import.
    explicit DxfData_TransferContext(Ref<ReadProcess> process) : read_process_(std::move(process)) {}
    /// For export.
    explicit DxfData_TransferContext(Ref<WriteProcess> process) : write_process_(std::move(process)) {}

    /// Null on export.
    const Ref<ReadProcess>& GetReadProcess() const { return read_process_; }
    /// Null on import.
    const Ref<WriteProcess>& GetWriteProcess() const { return write_process_; }
    /// The drawing at hand; null when the process has none.
    Ref<DxfSection_Model> Model() const;
    /// Reports on a record of the import; nothing happens without a read process.
    void AddFail(const Ref<Transient>& record, Message message);
    void AddWarning(const Ref<Transient>& record, Message message);

    void ClearStatus() { status_ = 0; }
    void AddStatus(DxfData_Status flags) { status_ |= static_cast<std::uint32_t>(flags); }
    /// Replaces all flags.
    void SetStatus(DxfData_Status flags) { status_ = static_cast<std::uint32_t>(flags); }
    bool Status(DxfData_Status query) const;

    /// Import: the shape bound to a record, also a null one; several are given as a new compound. False when
    /// nothing is bound.
    bool HasTranslated(const Ref<DxfSection_Object>& record, kernel::Shape& shape) const;
    /// Import: binds a shape, which may be null. A different shape bound before is kept beside it.
    void SetTransferResult(const Ref<DxfSection_Object>& record, const kernel::Shape& shape);

    /// Export: the record bound to a shape; false when there is none.
    bool HasTranslated(const kernel::Shape& shape, Ref<DxfSection_Object>& record) const;
    /// Export: binds a record in place of an earlier one.
    void SetTransferResult(const kernel::Shape& shape, const Ref<DxfSection_Object>& record);
    /// Export: binds a record beside earlier ones.
    void AddTransferResult(const kernel::Shape& shape, const Ref<DxfSection_Object>& record);

    /// Geometry built before for a record: false when none was. What gave nothing is found as an empty list.
    bool FindGeometry(const Transient* record, Ref<DxfData_GeometrySequence>& geometry) const;
    void SetGeometry(const Ref<Transient>& record, Ref<DxfData_GeometrySequence> geometry);
    /// Gives up the geometry of a record whose shape is bound: nobody needs it any more.
    void DropGeometry(const Ref<Transient>& record);

    /// Import: what the translators of polyline meshes and faces note for each other. Export: the blocks
    /// made, under what they hold; their number names the next one.
    DxfData_ObjectMap& Records() { return records_; }
    const DxfData_ObjectMap& Records() const { return records_; }

    /// Import: what inserts need to know of blocks.
    DxfData_BlockLibrary& Blocks() { return blocks_; }

    /// Millimetres per drawing unit.
    double UnitScale() const { return unit_scale_; }
    void SetUnitScale(double scale) { unit_scale_ = scale; }

    veltrane::CodePage GetCodePage() const { return code_page_; }
    void SetCodePage(veltrane::CodePage page) { code_page_ = page; }

    /// "cjk" for the East Asian code pages, otherwise empty.
    const std::string& FontFamily() const { return font_family_; }
    void SetFontFamily(std::string family) { font_family_ = std::move(family); }

    /// The number in $ACADVER: 1015 for AC1015.
    int DxfVersion() const { return dxf_version_; }
    void SetDxfVersion(int version) { dxf_version_ = version; }
    /// The ACIS version that goes with the drawing's version.
    int GetSATVersion() const;

    /// Export: sub-shapes that occur more than once, by definition alone.
    using ShapeSet = std::unordered_set<kernel::Shape, kernel::PartnerShapeHash, kernel::PartnerShape>;
    ShapeSet& RepeatedShapes() { return repeated_shapes_; }

private:
    Ref<ExchangeModel> any_model() const;

    Ref<ReadProcess> read_process_;
    Ref<WriteProcess> write_process_;
    RecordMap<Ref<DxfData_GeometrySequence>> geometry_;
    DxfData_ObjectMap records_;
    DxfData_BlockLibrary blocks_;
    std::uint32_t status_ = 0;
    double unit_scale_ = 1.0;
    veltrane::CodePage code_page_ = veltrane::CodePage::Iso8859_1;
    std::string font_family_;
    int dxf_version_ = 1021;
    ShapeSet repeated_shapes_;
};

}  // namespace veltrane
