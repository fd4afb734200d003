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

TEST_F(Fault, EveryOperation) {
    const std::size_t keys = keys_of(good).size();
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
            // Without the port type or the port modes the speed keys are not written.
            EXPECT_GE(keys_of(document).size(), keys - 2);
            make_fail(calls);
            check(good);
            make_fail(calls);
            EXPECT_GE(restore(good).size(), applied.size()) << "a call is left out";
        }
    }
}
