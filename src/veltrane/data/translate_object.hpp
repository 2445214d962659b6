// The base of all translators from records to shapes, and the registry that finds them.
#pragma once

#include "veltrane/data/transfer_context.hpp"
#include "veltrane/exchange/progress.hpp"
#include "veltrane/kernel/topo/shape.hpp"
#include "veltrane/section/object.hpp"

#include <string_view>
#include <unordered_map>

namespace veltrane {

/// A translator holds no state: one object serves all records of the types it is registered for.
class DxfData_TranslateObject : public Typed<DxfData_TranslateObject, Transient> {
public:
    static constexpr const char* kTypeName = "DxfData_TranslateObject";

    /// Builds the free geometry of a record, in millimetres and world co-ordinates. `thickness` and
    /// `extrusion` (a unit vector) tell how far and where to it is to be swept. Null or empty when there is
    /// nothing to build, with the context's status and the record's messages telling why.
    virtual Ref<DxfData_GeometrySequence> MakeGeometry(DxfData_TransferContext& context,
                                                       const Ref<DxfSection_Object>& record,
                                                       double& thickness,
                                                       kernel::Vector& extrusion) const = 0;
    /// The shape of a record, null when it gives none, and bound to it either way. This one turns what
    /// MakeGeometry builds into topology; a record translated before gives the same shape again.
    virtual kernel::Shape MakeShape(DxfData_TransferContext& context, const Ref<DxfSection_Object>& record,
                                    const Progress& progress) const;

    /// Keyed by the names of record types.
    using Registry = std::unordered_map<std::string_view, Ref<DxfData_TranslateObject>>;

    /// Binds a translator to a record type in place of an earlier one; false when there was one. Register
    /// before the first transfer: the registry is read without a lock.
    static bool RegisterTool(const Type& type, Ref<DxfData_TranslateObject> translator);
    /// False when none was bound.
    static bool UnRegisterTool(const Type& type);
    /// The translator of a type, or, with `inherit`, of the nearest type it derives from; null when there is
    /// none.
    static Ref<DxfData_TranslateObject> FindTool(const Type& type, bool inherit);
    static Registry& GetRegistry();

    /// Points become vertices and the curves together one edge or wire, chained and closed up; with a
    /// thickness of more than 1e-6 all of it is swept along thickness x extrusion. Several shapes give a
    /// compound, points first. Null when there is nothing to build. Throws kernel::KernelError.
    static kernel::Shape GeomToShape(const Ref<DxfData_GeometrySequence>& geometry, double thickness,
                                     const kernel::Vector& extrusion);
};

}  // namespace veltrane
