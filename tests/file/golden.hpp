// A golden pair for each record type: groups in, groups out and dump, typed from the format's description. A
// code that is wrong but legal survives any round trip; it does not survive these tables.
// record_golden_test.cpp checks the rows of all of them.
#pragma once

#include <initializer_list>
#include <vector>

namespace veltrane {

/// One row. A null text is told by another: `out` is `in`, and the dump stands in an earlier row.
struct Golden {
    const char* in;
    int version;
    const char* out = nullptr;
    const char* dump = nullptr;  ///< at level 0, lines parted by '|', "label=value"
};

/// A table of rows, known to the test once it stands anywhere in the test program.
struct Goldens {
    Goldens(std::initializer_list<Golden> rows) { all().insert(all().end(), rows); }

    static std::vector<Golden>& all() {
        static std::vector<Golden> rows;
        return rows;
    }
};

#define HEAD "5 2F|330 1F|"  // handle and owner
#define ENTITY HEAD "100 AcDbEntity|8 walls|"
#define ENTRY HEAD "100 AcDbSymbolTableRecord|"
#define ENTITY_DUMP "Inherits DxfSection_Entity|"
#define OBJECT_DUMP "Inherits DxfSection_NgEntity|"
#define ENTRY_DUMP "Inherits DxfSection_TabEntry|"

}  // namespace veltrane
