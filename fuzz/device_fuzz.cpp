// Any state of the device: codes out of range, texts that fill their fields,
// any number of entries. Backup never harms itself, and its document loads
// when no text of the device holds what a document cannot carry.

#include "fuzz/fuzz.h"

#include "platform/simulator/state_file.h"

#include <fuzzer/FuzzedDataProvider.h>
#include <nlohmann/json.hpp>

using nlohmann::json;

namespace {

// What a document carries in a quoted value: no quote, no line end.
bool can_be_carried = true;

json any_text(FuzzedDataProvider& source) {
    const auto bytes = source.ConsumeRandomLengthString(64);
    json text = json::array();
    for (const char byte : bytes) {
        can_be_carried = can_be_carried && byte != '"' && byte != '\n' && byte != '\0';
        text.push_back(static_cast<std::uint8_t>(byte));
    }
    return text;
}

json any_address(FuzzedDataProvider& source) {
    simulator::Ipv4 address{source.ConsumeIntegral<std::uint32_t>()};
    return simulator::dotted(address);
}

// Gives each member of the stored configuration another value of its kind.
// Numbers are cut to the member's width when they are read back.
void change(json& value, FuzzedDataProvider& source) {
    if (source.ConsumeBool()) {
        return;
    }
    if (value.is_array() && !value.empty() && source.ConsumeBool()) {
        const std::size_t size = source.ConsumeIntegralInRange<std::size_t>(0, 40);
        const json entry = value.front();
        value.get_ref<json::array_t&>().resize(size, entry);
    }
    if (value.is_structured()) {
        for (json& member : value) {
            change(member, source);
        }
    } else if (value.is_boolean()) {
        value = source.ConsumeBool();
    } else if (value.is_number()) {
        value = source.ConsumeIntegral<std::int64_t>();
    } else if (value.is_string() && simulator::address_from(value.get<std::string>().c_str())) {
        value = any_address(source);
    } else if (value.is_string() && value.get<std::string>().find(':') == std::string::npos) {
        value = any_text(source);
    }
}

// Without the line of the clock, which goes on.
std::string without_time(std::string document) {
    const std::size_t line = document.find("\nTime       = ");
    return line == std::string::npos ? document
                                     : document.erase(line, sizeof "\nTime       = \"00:00:00\"");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const json factory = json::parse(simulator::to_json_text(simulator::State()));
    FuzzedDataProvider source(data, size);
    can_be_carried = true;
    json changed = factory;
    change(changed, source);
    try {
        simulator::reset(simulator::from_json_text_cut(changed.dump()));
    } catch (const std::exception&) {
        return 0; // a record of a fixed number of entries has another number
    }

    const std::string document = fuzz::backup();
    fuzz::require(without_time(document) == without_time(fuzz::backup()), "two backups differ",
                  document);
    dictionary* ini = fuzz::load(document);
    fuzz::require(ini != nullptr || !can_be_carried, "the backup cannot be loaded", document);
    if (ini != nullptr) {
        fuzz::check(ini);
        restore_sections(ini, 0);
        iniparser_freedict(ini);
    }
    return 0;
}
