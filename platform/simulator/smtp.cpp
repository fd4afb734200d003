#include "platform/include/smtp.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

constexpr size_t text_size = 32;
constexpr size_t password_size = 16;

Smtp& smtp() {
    return state().smtp;
}

const char* plain(const uint8_t* text) {
    return reinterpret_cast<const char*>(text);
}

unsigned short read_text(const Call& call, const Field<text_size>& field, uint8_t* text,
                         uint8_t size) {
    return reads(call, [&] { field.copy_to(text, size); });
}

unsigned short set_text(const Call& call, Field<text_size>& field, const uint8_t* text) {
    return changes(call, [&] { field.assign(plain(text)); });
}

} // namespace

unsigned short U_FlshSmtpGetServer(uint8_t* server, uint8_t size) {
    return read_text(call(__func__, size), smtp().server, server, size);
}

unsigned short U_FlshSmtpSetServer(const uint8_t* server) {
    return set_text(call(__func__, server), smtp().server, server);
}

unsigned short U_FlshSmtpGetSendAdd(uint8_t* sender, uint8_t size) {
    return read_text(call(__func__, size), smtp().sender, sender, size);
}

unsigned short U_FlshSmtpSetSendAdd(const uint8_t* sender) {
    return set_text(call(__func__, sender), smtp().sender, sender);
}

unsigned short U_FlshSmtpGetSubject(uint8_t* subject, uint8_t size) {
    return read_text(call(__func__, size), smtp().subject, subject, size);
}

unsigned short U_FlshSmtpSetSubject(const uint8_t* subject) {
    return set_text(call(__func__, subject), smtp().subject, subject);
}

unsigned short U_FlshSmtpGetUnamePwd(char* authentication, uint8_t* username, uint8_t* password) {
    return reads(call(__func__), [&] {
        *authentication = static_cast<char>(smtp().authentication);
        smtp().username.copy_to(username, text_size);
        smtp().password.copy_to(password, password_size);
    });
}

unsigned short U_FlshSmtpSetUnamePwd(char authentication, const uint8_t* username,
                                     const uint8_t* password) {
    return changes(call(__func__, authentication, username, password), [&] {
        smtp().authentication = static_cast<signed char>(authentication);
        smtp().username.assign(plain(username));
        smtp().password.assign(plain(password));
    });
}

unsigned short U_FlshSmtpGetTLS(char* tls) {
    return reads(call(__func__), [&] { *tls = static_cast<char>(smtp().tls); });
}

unsigned short U_FlshSmtpSetTLS(char tls) {
    return changes(call(__func__, tls), [&] { smtp().tls = static_cast<signed char>(tls); });
}

unsigned short U_FlshSmtpGetRecAdd(uint8_t* recipient1, uint8_t* recipient2, uint8_t* recipient3,
                                   uint8_t* recipient4) {
    return reads(call(__func__), [&] {
        const auto& recipients = smtp().recipients;
        recipients[0].copy_to(recipient1, text_size);
        recipients[1].copy_to(recipient2, text_size);
        recipients[2].copy_to(recipient3, text_size);
        recipients[3].copy_to(recipient4, text_size);
    });
}

unsigned short U_FlshSmtpSetRecAdd(const uint8_t* recipient1, const uint8_t* recipient2,
                                   const uint8_t* recipient3, const uint8_t* recipient4) {
    return changes(call(__func__, recipient1, recipient2, recipient3, recipient4), [&] {
        auto& recipients = smtp().recipients;
        recipients[0].assign(plain(recipient1));
        recipients[1].assign(plain(recipient2));
        recipients[2].assign(plain(recipient3));
        recipients[3].assign(plain(recipient4));
    });
}

unsigned short U_SysSetRelayConfig(void) {
    return changes(call(__func__), [] {});
}
