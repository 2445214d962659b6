// The account of a conversion: what was read, what became of it, and what was said about it.
#pragma once

#include "veltrane/exchange/read_process.hpp"
#include "veltrane/output/record_walk.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace veltrane {

/// What became of the records of one type: read = shape + nothing + no_translator.
struct TypeAccount {
    std::string type;  ///< DXF name
    std::size_t read = 0;
    std::size_t shape = 0;          ///< gave a shape
    std::size_t nothing = 0;        ///< have a translator and gave none
    std::size_t no_translator = 0;  ///< were passed over
};

/// Records that stand where shapes are not made of them: in blocks, in tables, among the objects.
struct PlaceAccount {
    std::string place;  ///< the section's name, with the block's or record's type for what is inside one
    std::string type;
    std::size_t read = 0;
};

/// A record that gave no shape although there is a translator for it.
struct LostRecord {
    std::size_t reason = 0;   ///< index in Account::reasons
    std::size_t type = 0;     ///< index in Account::types
    std::int32_t handle = 0;  ///< 0: none
    int line = 0;             ///< in the file; 0: not known
};

/// Messages of one kind, which differ in their numbers only.
struct MessageAccount {
    enum class Stage : std::uint8_t { Reading, Transfer };

    Stage stage = Stage::Reading;
    bool is_fail = false;
    std::string kind;     ///< the text with its placeholders
    std::string example;  ///< the first of them as it was given
    std::string record;   ///< type and handle of the record of the first; empty for the file as a whole
    int line = 0;         ///< where that record stands; 0: not known
    std::size_t count = 0;
};

struct Account {
    std::vector<TypeAccount> types;        ///< of the ENTITIES section, by name
    std::vector<PlaceAccount> elsewhere;   ///< by place in file order, then by name
    std::vector<std::string> reasons;      ///< why records gave nothing
    std::vector<LostRecord> lost;          ///< in file order
    std::vector<MessageAccount> messages;  ///< reading, then transfer; in order of the first of each kind

    /// Sums over `types`.
    TypeAccount total() const;
    std::size_t read_elsewhere() const;
    std::size_t count_messages(MessageAccount::Stage stage, bool fails) const;
    /// True when something of the drawing did not become a shape, or a fail was reported.
    bool has_losses() const;
};

/// What only those know who read and translate.
struct AccountQuestions {
    RecordNames name;  ///< may be empty
    /// True when there is a translator for records of this kind; empty: for none but those that gave a shape.
    std::function<bool(const DxfSection_Object&)> has_translator;
};

/// Goes through the whole tree of the drawing: every record except the sections themselves is counted once,
/// either in `types` or in `elsewhere`, the ends of blocks included. A record without shape is accounted
/// for by the fails reported on it, "not transferred" when it was never reached, or "no reason given".
Account make_account(const DxfSection_Model& model, const ReadProcess& process,
                     const AccountQuestions& questions);

/// The account as text for people, with at most `examples` lost records for each reason.
std::string account_text(const Account& account, std::size_t examples = 5);

}  // namespace veltrane
