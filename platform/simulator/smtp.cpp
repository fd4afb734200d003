#include "platform/include/smtp.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

constexpr size_t text_size = 32;
constexpr size_t password_size = 16;

unsigned short read_text(const char* name, const Field<text_size>& field, uint8_t* text,
                         uint8_t size) {
    return reads(
        name, [&] { field.copy_to(text, size); }, size);
}

unsigned short set_text(const char* name, Field<text_size>& field, const uint8_t* text) {
    return changes(
        name, [&] { field.assign(reinterpret_cast<const char*>(text)); }, text);
}

} // namespace

unsigned short U_FlshSmtpGetServer(uint8_t* server, uint8_t size) {
    return read_text("U_FlshSmtpGetServer", state().smtp.server, server, size);
}

unsigned short U_FlshSmtpSetServer(const uint8_t* server) {
    return set_text("U_FlshSmtpSetServer", state().smtp.server, server);
}

unsigned short U_FlshSmtpGetSendAdd(uint8_t* sender, uint8_t size) {
    return read_text("U_FlshSmtpGetSendAdd", state().smtp.sender, sender, size);
}

unsigned short U_FlshSmtpSetSendAdd(const uint8_t* sender) {
    return set_text("U_FlshSmtpSetSendAdd", state().smtp.sender, sender);
}

unsigned short U_FlshSmtpGetSubject(uint8_t* subject, uint8_t size) {
    return read_text("U_FlshSmtpGetSubject", state().smtp.subject, subject, size);
}

unsigned short U_FlshSmtpSetSubject(const uint8_t* subject) {
    return set_text("U_FlshSmtpSetSubject", state().smtp.subject, subject);
}

unsigned short U_FlshSmtpGetUnamePwd(char* authentication, uint8_t* username, uint8_t* password) {
    return reads("U_FlshSmtpGetUnamePwd", [&] {
        *authentication = static_cast<char>(state().smtp.authentication);
        state().smtp.username.copy_to(username, text_size);
        state().smtp.password.copy_to(password, password_size);
    });
}

unsigned short U_FlshSmtpSetUnamePwd(char authentication, const uint8_t* username,
                                     const uint8_t* password) {
    return changes(
        "U_FlshSmtpSetUnamePwd",
        [&] {
            state().smtp.authentication = static_cast<signed char>(authentication);
            state().smtp.username.assign(reinterpret_cast<const char*>(username));
            state().smtp.password.assign(reinterpret_cast<const char*>(password));
        },
        authentication, username, password);
}

unsigned short U_FlshSmtpGetTLS(char* tls) {
    return reads("U_FlshSmtpGetTLS", [&] { *tls = static_cast<char>(state().smtp.tls); });
}

unsigned short U_FlshSmtpSetTLS(char tls) {
    return changes(
        "U_FlshSmtpSetTLS", [&] { state().smtp.tls = static_cast<signed char>(tls); }, tls);
}

unsigned short U_FlshSmtpGetRecAdd(uint8_t* recipient1, uint8_t* recipient2, uint8_t* recipient3,
                                   uint8_t* recipient4) {
    return reads("U_FlshSmtpGetRecAdd", [&] {
        const auto& recipients = state().smtp.recipients;
        recipients[0].copy_to(recipient1, text_size);
        recipients[1].copy_to(recipient2, text_size);
        recipients[2].copy_to(recipient3, text_size);
        recipients[3].copy_to(recipient4, text_size);
    });
}

unsigned short U_FlshSmtpSetRecAdd(const uint8_t* recipient1, const uint8_t* recipient2,
                                   const uint8_t* recipient3, const uint8_t* recipient4) {
    return changes(
        "U_FlshSmtpSetRecAdd",
        [&] {
            auto& recipients = state().smtp.recipients;
            recipients[0].assign(reinterpret_cast<const char*>(recipient1));
            recipients[1].assign(reinterpret_cast<const char*>(recipient2));
            recipients[2].assign(reinterpret_cast<const char*>(recipient3));
            recipients[3].assign(reinterpret_cast<const char*>(recipient4));
        },
        recipient1, recipient2, recipient3, recipient4);
}

unsigned short U_SysSetRelayConfig(void) {
    return changes("U_SysSetRelayConfig", [] {});
}
