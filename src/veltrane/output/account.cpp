#include "veltrane/output/account.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/handle_text.hpp"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

namespace veltrane {
namespace {

using Stage = MessageAccount::Stage;

/// Numbers texts in the order in which they first come.
class TextNumbers {
public:
    std::size_t number(const std::string& text) {
        const auto [place, is_new] = numbers_.try_emplace(text, texts_.size());
        if (is_new) texts_.push_back(text);
        return place->second;
    }
    const std::string& text(std::size_t number) const { return texts_[number]; }
    const std::vector<std::string>& texts() const { return texts_; }

private:
    std::unordered_map<std::string, std::size_t> numbers_;
    std::vector<std::string> texts_;
};

std::int32_t handle_of(const DxfSection_Object& record) {
    const auto* handled = as<const DxfSection_HandledObject>(&record);
    return handled ? std::max(handled->Handle, 0) : 0;
}

class Accountant {
public:
    Accountant(const DxfSection_Model& model, const ReadProcess& process, const AccountQuestions& questions)
        : model_(model), process_(process), questions_(questions) {}

    Account run() {
        const auto& root = model_.DxfFile();
        if (root && root->Sections) {
            for (const auto& top : *root->Sections) take_top(top);
        }
        count_messages();
        sort_types();
        account_.reasons = reasons_.texts();
        return std::move(account_);
    }

private:
    /// A record that is still to be counted at its place.
    struct Waiting {
        Ref<DxfSection_Object> record;
        std::size_t place;
    };

    std::string name_of(const DxfSection_Object& record) const { return type_name(record, questions_.name); }

    void take_top(const Ref<DxfSection_Object>& top) {
        if (!top) return;
        const auto* section = as<const DxfSection_Section>(top.get());
        if (!section) {
            take_elsewhere(top, places_.number(""));
            finish_place();
            return;
        }
        const std::size_t place = places_.number(section->Name.str());
        const bool is_drawn = section->Name == "ENTITIES";
        if (section->Objects) {
            for (const auto& record : *section->Objects) {
                if (!record) continue;
                if (is_drawn) {
                    take_entity(*record);
                    take_parts(*record, place);
                } else {
                    take_elsewhere(record, place);
                }
            }
        }
        finish_place();
    }

    void take_entity(const DxfSection_Object& record) {
        const std::size_t type = types_.number(name_of(record));
        if (type == account_.types.size()) account_.types.emplace_back().type = name_of(record);
        TypeAccount& sums = account_.types[type];
        ++sums.read;
        const Ref<TransferBinder> binder = process_.Find(&record);
        if (!shape_result(binder.get()).is_null()) {
            ++sums.shape;
        } else if (questions_.has_translator && questions_.has_translator(record)) {
            ++sums.nothing;
            account_.lost.push_back({reasons_.number(reason_of(record, bool(binder))), type,
                                     handle_of(record), model_.Line(model_.Number(&record))});
        } else {
            ++sums.no_translator;
        }
    }

    std::string reason_of(const DxfSection_Object& record, bool was_bound) const {
        const Check* check = process_.CheckOf(&record);
        if (!check || !check->HasFailed()) return was_bound ? "no reason given" : "not transferred";
        std::string reason;
        for (const Message& fail : check->Fails()) {
            if (!reason.empty()) reason += "; ";
            reason += fail.text();
        }
        return reason;
    }

    /// Counts a record and all below it.
    void take_elsewhere(const Ref<DxfSection_Object>& record, std::size_t place) {
        std::vector<Waiting> waiting{{record, place}};
        while (!waiting.empty()) {
            const Waiting next = std::move(waiting.back());
            waiting.pop_back();
            ++place_sums_[{next.place, name_of(*next.record)}];
            push_parts(*next.record, next.place, waiting);
        }
    }

    void take_parts(const DxfSection_Object& record, std::size_t place) {
        std::vector<Waiting> parts;
        push_parts(record, place, parts);
        for (const Waiting& part : parts) take_elsewhere(part.record, part.place);
    }

    void push_parts(const DxfSection_Object& record, std::size_t place, std::vector<Waiting>& parts) {
        const auto* block = as<const DxfSection_Block>(&record);
        if (block && block->EndMarker) parts.push_back({block->EndMarker, place});
        const auto below = record.GetSubObjects();
        if (!below || below->IsEmpty()) return;
        const std::string& outside = places_.text(place);
        const std::size_t inside =
            places_.number((outside.empty() ? "" : outside + ", ") + "in " + name_of(record));
        for (const auto& part : *below) {
            if (part) parts.push_back({part, inside});
        }
    }

    void finish_place() {
        for (const auto& [key, count] : place_sums_) {
            account_.elsewhere.push_back({places_.text(key.first), key.second, count});
        }
        place_sums_.clear();
    }

    void count_messages() {
        count_check(Stage::Reading, model_.GlobalCheck(), nullptr);
        for (int number = 1; number <= model_.NbEntities(); ++number) {
            const Check* check = model_.CheckOf(number);
            if (check) count_check(Stage::Reading, *check, model_.Value(number).get());
        }
        for (const RecordReport& report : process_.Reports()) {
            count_check(Stage::Transfer, report.Messages, report.Record.get());
        }
    }

    void count_check(Stage stage, const Check& check, const Transient* record) {
        for (const Message& fail : check.Fails()) count_message(stage, true, fail, record);
        for (const Message& warning : check.Warnings()) count_message(stage, false, warning, record);
    }

    void count_message(Stage stage, bool is_fail, const Message& message, const Transient* record) {
        const std::pair key(std::pair(stage, is_fail), std::string(message.source()));
        const auto [place, is_new] = messages_.try_emplace(key, account_.messages.size());
        if (is_new) {
            MessageAccount first{stage, is_fail, key.second, message.text(), label_of(record), 0, 0};
            if (record) first.line = model_.Line(model_.Number(record));
            account_.messages.push_back(std::move(first));
        }
        ++account_.messages[place->second].count;
    }

    std::string label_of(const Transient* subject) const {
        const auto* record = as<const DxfSection_Object>(subject);
        if (!record) return {};
        const std::string handle = handle_label(*record);
        return name_of(*record) + (handle.empty() ? "" : " " + handle);
    }

    /// By name; the indices of lost records follow.
    void sort_types() {
        std::vector<std::size_t> order(account_.types.size());
        for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
        std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return account_.types[a].type < account_.types[b].type;
        });
        std::vector<TypeAccount> sorted;
        std::vector<std::size_t> now_at(order.size());
        for (const std::size_t i : order) {
            now_at[i] = sorted.size();
            sorted.push_back(std::move(account_.types[i]));
        }
        account_.types = std::move(sorted);
        for (LostRecord& record : account_.lost) record.type = now_at[record.type];
    }

    const DxfSection_Model& model_;
    const ReadProcess& process_;
    const AccountQuestions& questions_;
    Account account_;
    TextNumbers types_;
    TextNumbers reasons_;
    TextNumbers places_;
    std::map<std::pair<std::size_t, std::string>, std::size_t> place_sums_;
    std::map<std::pair<std::pair<Stage, bool>, std::string>, std::size_t> messages_;
};

}  // namespace

TypeAccount Account::total() const {
    TypeAccount sum;
    sum.type = "total";
    for (const TypeAccount& type : types) {
        sum.read += type.read;
        sum.shape += type.shape;
        sum.nothing += type.nothing;
        sum.no_translator += type.no_translator;
    }
    return sum;
}

std::size_t Account::read_elsewhere() const {
    std::size_t sum = 0;
    for (const PlaceAccount& place : elsewhere) sum += place.read;
    return sum;
}

std::size_t Account::count_messages(MessageAccount::Stage stage, bool fails) const {
    std::size_t sum = 0;
    for (const MessageAccount& message : messages) {
        if (message.stage == stage && message.is_fail == fails) sum += message.count;
    }
    return sum;
}

bool Account::has_losses() const {
    const TypeAccount sum = total();
    return sum.nothing > 0 || sum.no_translator > 0 || count_messages(Stage::Reading, true) > 0 ||
           count_messages(Stage::Transfer, true) > 0;
}

Account make_account(const DxfSection_Model& model, const ReadProcess& process,
                     const AccountQuestions& questions) {
    return Accountant(model, process, questions).run();
}

}  // namespace veltrane
