// Every secret that a run reads or decodes is wiped with each buffer that it was in.

#include "platform/include/aes.h"
#include "tests/support/switch_test.h"

#include <algorithm>

namespace {

Calls wiped; // what was in each memory that has been wiped

} // namespace

// In place of the C library's, under both names that callers are compiled with.
extern "C" void explicit_bzero(void* memory, std::size_t size) noexcept {
    wiped.emplace_back(static_cast<const char*>(memory), size);
    memset(memory, 0, size);
}

// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is libc's
extern "C" void __explicit_bzero_chk(void* memory, std::size_t size, std::size_t) noexcept {
    explicit_bzero(memory, size);
}

class Wipe : public SwitchTest {};

TEST_F(Wipe, EveryBufferOfEverySecret) {
    // How many buffers hold it, in place or in a longer text.
    struct Buffers {
        std::string secret;
        int backup, check, restore;
    };
    std::string stored = "Admin-4711";
    for (char& byte : stored) {
        byte = static_cast<char>(~byte); // as the simulated switch encrypts it
    }
    const Buffers secrets[] = {
        {stored, 1, 0, 1},
        {"Admin-4711", 1, 0, 1},
        {"public", 2, 0, 2},
        {"trap community", 3, 0, 2},
        {"authenticate me", 1, 0, 2},
        {"and keep it priv", 1, 0, 2},
        {"ate", 4, 0, 6}, // the second block of the one before
        {"0200005e10200001", 2, 0, 2},
        {"000102030405060708090a0b0c0d0e0f", 2, 0, 1},
        {"radius shared secret", 1, 1, 1},
        {"login shared secret", 1, 0, 1},
        {"mail secret", 1, 0, 1},
    };
    simulator::state().snmp.receivers[0].community = "trap community";
    const std::string document =
        with(backup(), "auth server setting", "authentication server", "1");
    const auto expect_wiped = [&](int Buffers::*buffers, auto run) {
        simulator::journal().clear();
        wiped.clear();
        run();
        for (const Buffers& row : secrets) {
            EXPECT_GE(calls_with(wiped, row.secret).size(), static_cast<unsigned>(row.*buffers))
                << row.secret;
        }
        const auto filled = [](std::size_t size) {
            return std::count_if(wiped.begin(), wiped.end(), [&](const std::string& memory) {
                return memory.size() == size && memory != std::string(size, '\0');
            });
        };
        EXPECT_GE(filled(16), calls_with(all_calls(), "AES_ECB").size()) << "blocks";
        EXPECT_GE(filled(sizeof(AES_ctx)), calls_with(all_calls(), "AES_init").size()) << "keys";
    };
    expect_wiped(&Buffers::backup, [] { backup(); });
    expect_wiped(&Buffers::check, [&] { check(document); });
    expect_wiped(&Buffers::restore, [&] { restore(document); });
}
