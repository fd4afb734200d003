// Device libraries with one fault each: the simulated switch, but the linker (--wrap)
// takes these operations from here. FAULT in the environment names the faulty one.

#include "platform/include/accounts.h"
#include "platform/include/acl.h"
#include "platform/include/aes.h"
#include "platform/include/converters.h"
#include "platform/include/dot1x.h"
#include "platform/include/modbus.h"
#include "platform/include/port_masks.h"
#include "platform/include/ports.h"
#include "platform/include/qos.h"
#include "platform/include/rstp.h"
#include "platform/include/services.h"
#include "platform/include/smtp.h"
#include "platform/include/snmp.h"
#include "platform/include/start_up.h"
#include "platform/include/system.h"
#include "platform/include/system_log.h"
#include "platform/include/vlan.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <unistd.h>

namespace {
const char* const fault = std::getenv("FAULT") != nullptr ? std::getenv("FAULT") : "";
int calls = 0;
} // namespace

// An operation that does something else when it is the faulty one.
#define FAULTY(operation, parameters, arguments, ...)                                              \
    extern "C" decltype(operation) real_##operation asm("__real_" #operation);                     \
    extern "C" decltype(operation) wrap_##operation asm("__wrap_" #operation);                     \
    auto wrap_##operation parameters->decltype(real_##operation arguments) {                       \
        if (std::strncmp(fault, #operation, sizeof #operation - 1) == 0) {                         \
            __VA_ARGS__                                                                            \
        }                                                                                          \
        return real_##operation arguments;                                                         \
    }

// One that always fails, getters of another width, and one whose value changes.
FAULTY(U_LldpGetEnable, (unsigned char* enabled), (enabled), return 1;)
FAULTY(U_StpGetPriority, (uint16_t * value), (value), value[1] = 0;)
FAULTY(U_SysGetModbusPort, (unsigned long* value), (value),
       *reinterpret_cast<uint16_t*>(value) = 502;
       return 0;)
FAULTY(U_SysGetFirmwareVer, (unsigned char* major, unsigned char* minor, unsigned long* date),
       (major, minor, date), *minor = 0;
       *date = 0; *major = static_cast<unsigned char>(++calls); return 0;)

// A text without its terminator, and one that goes beyond its size.
FAULTY(U_FlshSmtpGetServer, (uint8_t * server, uint8_t size), (server, size),
       std::memcpy(server, "mail", 4);
       return 0;)
FAULTY(U_FlshDot1xGetRdsId, (char* text, uint8_t size), (text, size),
       std::memset(text, 0, size + 1U);
       return 0;)

// Getters that write although they fail.
FAULTY(U_SnmpGetCommunityEntry, (uint16_t row, uint8_t* permission, char* community),
       (row, permission, community), *permission = 0;)
FAULTY(str_to_ip, (unsigned long* address, const char* text), (address, text), *address = 1;)

// Validators turned round, always content, and with a verdict above the low 8 bits.
FAULTY(Usrmodbus_check_modbus_port, (int port), (port),
       return real_Usrmodbus_check_modbus_port(port) == 0;)
FAULTY(Usrsyslog_check_log_level, (int level), (level), return level >= -1;)
FAULTY(Usrmacsec_check_fiber_speed, (int speed), (speed), return speed * 256;)
FAULTY(
    check_vlan_data, (vlan_data_t * data, char* message, TstFlshVlanEntry* table, void* removals),
    (data, message, table, removals), data->portrole[0] &= 1;
    if (fault[15] != '\0') { table[512].usVlanId = 1; })

// One converter of a pair with its bytes the other way round, and one that loses a byte.
FAULTY(ip_to_str, (char* text, unsigned long address), (text, address),
       return real_ip_to_str(text, __builtin_bswap32(static_cast<uint32_t>(address)));)
FAULTY(str_to_mac, (unsigned char* mac, const char* text), (mac, text),
       const int result = real_str_to_mac(mac, text);
       mac[5] = 0; return result;)

// Secrets: an AES that does nothing, other padding, and a terminator that nobody wants.
FAULTY(AES_ECB_encrypt, (const AES_ctx* context, uint8_t* block), (context, block), return;)
FAULTY(_pkcs7pad, (uint8_t * block), (block), return;)
FAULTY(hexstr_to_byte, (char* bytes, const char* text), (bytes, text),
       bytes[std::strlen(text) / 2] = '\0';)
FAULTY(usrutil_hexStrToHexValue, (const unsigned char* text, unsigned char* bytes, int length),
       (text, bytes, length), char digits[33] = {};
       std::memcpy(digits, text, static_cast<unsigned>(2 * length)); digits[2 * length - 1] = '0';
       return real_usrutil_hexStrToHexValue(reinterpret_cast<unsigned char*>(digits), bytes,
                                            length);)

// Ports of another word, words too many, another name and mode of ports.
FAULTY(U_LPortMaskSetPort, (TstLPortMask * mask, uint8_t port), (mask, port),
       return real_U_LPortMaskSetPort(mask, port % 32);)
FAULTY(U_LPortMaskClrAll, (TstLPortMask * mask), (mask), mask[1].ulMask[0] = 0;)
FAULTY(U_PPortMaskOr,
       (TstPPortMask * destination, const TstPPortMask* first, const TstPPortMask* second),
       (destination, first, second), destination->ulMask[0] = first->ulMask[0] | second->ulMask[0];
       return;)
FAULTY(U_TrkLId2LogicId, (char* name, uint8_t id), (name, id), id = id == 6 ? 9 : id;)
FAULTY(U_TrkLId2PMask, (TstPPortMask * members, uint8_t id), (members, id), members->ulMask[0] = id;
       return 0;)
FAULTY(U_PortGetMode, (uint8_t port), (port), port = port == 4 ? 6 : port;)

// Setters: without effect, with effect on another port too, with no strict priority, with effect
// once only, with two arguments swapped, cut, and one that leaves a hole in a table.
FAULTY(U_StpSetEbl, (char enabled), (enabled), (void)enabled; return 0;)
FAULTY(U_Dot1xSetPortMode, (uint8_t port, uint8_t mode), (port, mode),
       real_U_Dot1xSetPortMode(3, mode);)
FAULTY(U_QosSetScheduleMode, (TstFlshSchedulemode * mode), (mode), mode->sch = 0;)
FAULTY(
    U_FlshHTTPSSet, (char enabled), (enabled), if (++calls > 1) { return 0; })
FAULTY(U_Dot1xSetRds, (uint32_t server, uint16_t port, uint16_t accounting_port),
       (server, port, accounting_port), std::swap(port, accounting_port);)
FAULTY(U_Dot1xSetTimeoutReauth, (uint32_t seconds), (seconds), seconds &= 0xff;)
FAULTY(U_SnmpDelCommunity, (const char* community), (community), real_U_SnmpDelCommunity(community);
       return U_SnmpInsCommunity(0, "");)
FAULTY(
    account_deleteFromFlash, (const account_t* account, account_err_t* error), (account, error),
    char name[33] = "";
    account_decryptUsername(account, name, 32, error); if (name[0] == '\0') { return; })

// A signal in the middle of a table: not a fault of the library.
FAULTY(
    U_SnmpInsCommunity, (uint8_t permission, const char* community), (permission, community),
    if (++calls == 5) { std::raise(SIGTERM); })

// Tables that cannot be emptied: a privacy key that is lost, and a rule that goes into
// the slot of another.
FAULTY(U_SnmpInsUsm,
       (const char* name, uint8_t authentication, const char* password, uint8_t privacy,
        const char* privacy_key),
       (name, authentication, password, privacy, privacy_key), privacy_key = "";)
FAULTY(U_AclInsRule, (uint16_t index, TstFlshAcl* rule), (index, rule),
       index = index > 9 ? 9 : index;)

// A key that changes when the configuration is loaded, or is another in each process.
extern "C" uint8_t wrap_key[32] asm("__wrap_key");
uint8_t wrap_key[32] = {std::strcmp(fault, "key") == 0 ? static_cast<uint8_t>(getpid())
                                                       : uint8_t(1)};
FAULTY(initdef, (), (), wrap_key[0] ^= 2;)
