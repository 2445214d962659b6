#include "veltrane/file/object_registrator.hpp"

#include <algorithm>
#include <unordered_map>

namespace veltrane {

namespace {

struct Registry {
    std::unordered_map<std::string_view, const DxfFile_ObjectRegistrator*> by_name;
    std::unordered_map<std::string_view, const DxfFile_ObjectRegistrator*> by_type;
    std::vector<const DxfFile_ObjectRegistrator*> all;
};

Registry& registry() {
    static Registry instance;
    return instance;
}

template <class Map>
const DxfFile_ObjectRegistrator* bound(const Map& map, std::string_view key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : found->second;
}

}  // namespace

DxfFile_ObjectRegistrator::DxfFile_ObjectRegistrator(const char* name, const Type& record_type)
    : name_(name), record_type_(record_type) {
    Registry& known = registry();
    if (const auto* earlier = bound(known.by_name, name)) std::erase(known.all, earlier);
    known.by_name[name] = this;
    known.by_type[record_type.name()] = this;
    known.all.push_back(this);
}

const DxfFile_ObjectRegistrator* DxfFile_ObjectRegistrator::Find(std::string_view name) {
    return bound(registry().by_name, name);
}

const DxfFile_ObjectRegistrator* DxfFile_ObjectRegistrator::Find(const Type& record_type) {
    return bound(registry().by_type, record_type.name());
}

const std::vector<const DxfFile_ObjectRegistrator*>& DxfFile_ObjectRegistrator::All() {
    return registry().all;
}

}  // namespace veltrane
