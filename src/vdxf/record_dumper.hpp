// Records as text or JSON, one after the other.
#pragma once

#include "veltrane/section/model.hpp"

#include <memory>
#include <ostream>
#include <string>

namespace veltrane::tool {

/// Whether the records inside a container are shown with it.
enum class Contents { Counted, Shown };

/// Keeps nothing of a record once the next one comes.
class RecordDumper {
public:
    virtual ~RecordDumper() = default;
    virtual void dump(const DxfSection_Object& record, Contents contents) = 0;
};

/// Both refer to the stream and the model. Levels are those of the work library: 0 tells type, handle and
/// line of a record, 1 its layer and name as well, 2 to 4 more and more of its fields.
std::unique_ptr<RecordDumper> text_dumper(std::ostream& out, const DxfSection_Model& model, int level);
/// One JSON document, whole when the dumper has gone.
std::unique_ptr<RecordDumper> json_dumper(std::ostream& out, const DxfSection_Model& model, int level,
                                          const std::string& file);

}  // namespace veltrane::tool
