#include "veltrane/exchange/controller.hpp"

#include <functional>
#include <map>
#include <mutex>

namespace veltrane {
namespace {

struct Table {
    std::mutex mutex;
    std::map<std::string, Ref<ExchangeController>, std::less<>> controllers;
};

Table& table() {
    static Table instance;
    return instance;
}

}  // namespace

void ExchangeController::Record(std::string_view name) {
    const std::lock_guard lock(table().mutex);
    table().controllers.insert_or_assign(std::string(name), Ref<ExchangeController>(this));
}

Ref<ExchangeController> ExchangeController::Recorded(std::string_view name) {
    const std::lock_guard lock(table().mutex);
    const auto found = table().controllers.find(name);
    return found == table().controllers.end() ? nullptr : found->second;
}

}  // namespace veltrane
