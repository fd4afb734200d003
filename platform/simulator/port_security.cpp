// The choice of this switch: any value is stored.

#include "platform/include/port_security.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

PortSecurity& security() {
    return state().port_security;
}

Written written_record(const TstFlshPortSecMac& record) {
    std::string list;
    for (const port_mac_t& entry : record.port_max_mac) {
        list += (list.empty() ? "" : ",") + written(entry.Action) + ":" + written(entry.MaxMac);
    }
    return {"TstFlshPortSecMac{port_max_mac={" + list + "}, gblebl=" + written(record.gblebl) +
            "}"};
}

} // namespace

unsigned short U_FlshPortSecMacGet(TstFlshPortSecMac* record) {
    return reads(call(__func__), [&] {
        const auto enabled = static_cast<char>(security().enabled);
        record->gblebl = enabled;
        for (size_t port = 0; port < security().ports.size(); ++port) {
            const SecuredPort& stored = security().ports[port];
            record->port_max_mac[port] = {enabled, stored.action, static_cast<uint8_t>(port),
                                          stored.maximum};
        }
    });
}

unsigned short U_FlshPortSecMacSet(TstFlshPortSecMac* record) {
    return changes(call(__func__, written_record(*record)), [&] {
        security().enabled = static_cast<signed char>(record->gblebl);
        for (size_t port = 0; port < security().ports.size(); ++port) {
            security().ports[port] = {record->port_max_mac[port].Action,
                                      record->port_max_mac[port].MaxMac};
        }
    });
}

unsigned short U_PortSecSwitchMac(uint8_t port, uint8_t enabled, char global, uint16_t maximum) {
    return changes(call(__func__, port, enabled, global, maximum),
                   has_port(port) && port < security().ports.size(), [&] {
                       security().enabled = static_cast<signed char>(global);
                       security().ports[port] = {enabled, maximum};
                   });
}
