// Every device operation made to fail, in every mode.

#include "tests/support/switch_test.h"

#include <set>

using simulator::make_fail;
using simulator::reset;

class Fault : public SwitchTest {
protected:
    std::string good = backup();

    std::set<std::string> operations() {
        check(good);
        std::set<std::string> names;
        const auto collect = [&] {
            for (const std::string& call : all_calls()) {
                names.insert(call.substr(0, call.find('(')));
            }
        };
        collect();
        restore(good);
        collect();
        return names;
    }
};

// These tell how many keys or calls there are to be.
const std::set<std::string> counts = {
    "get_eeprom_macsec_port_type",
    "U_PortGetMode",
    "account_getFromFlash",
    "U_SnmpGetCommunitySize",
    "U_SnmpGetTrapSize",
    "U_SnmpGetUsmSize",
    "U_FlshSnmpGetMode",
    "U_SysGetMSNTP",
    "U_SysGetDaylight",
    "U_FlshGetAcl",
    "U_QosGetScheduleMode",
};

std::size_t sections(const std::string& document) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = document.find("\n[", at)) != std::string::npos; ++at) {
        ++count;
    }
    return count;
}

TEST_F(Fault, EveryOperation) {
    const std::set<std::string> names = operations();
    EXPECT_GT(names.size(), 20U);
    for (const std::string& name : names) {
        for (const std::string& calls : {name, name + ":1", name + ":2"}) {
            SCOPED_TRACE(calls);
            reset();
            const Calls applied = restore(good);
            reset();
            make_fail(calls);
            const std::string document = backup();
            EXPECT_EQ(sections(document), sections(good));
            if (counts.count(name) == 0) {
                EXPECT_EQ(keys_of(document).size(), keys_of(good).size()) << "a key is left out";
            }
            make_fail(calls);
            check(good);
            make_fail(calls);
            if (counts.count(name) == 0) {
                EXPECT_GE(restore(good).size(), applied.size()) << "a call is left out";
            } else {
                restore(good);
            }
        }
    }
}
