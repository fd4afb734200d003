#include "platform/include/login_server.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

constexpr size_t shared_key_size = 30;

} // namespace

unsigned short U_LoginAuthSrvGetEbl(uint8_t* enabled, uint8_t* kind) {
    return reads(call(__func__), [&] {
        *enabled = state().login_server.enabled;
        *kind = state().login_server.kind;
    });
}

unsigned short U_LoginAuthSrvSetEbl(uint8_t enabled, uint8_t kind, char apply) {
    return changes(call(__func__, enabled, kind, apply), [&] {
        state().login_server.enabled = enabled;
        state().login_server.kind = kind;
    });
}

unsigned short U_GetLoginAuthSrv(IP_ADDR_T* address, uint16_t* port, char* shared_key,
                                 uint8_t* method, uint8_t* timeout) {
    return reads(call(__func__), [&] {
        *address = state().login_server.address.record;
        *port = state().login_server.port;
        state().login_server.shared_key.copy_to(shared_key, shared_key_size);
        *method = state().login_server.method;
        *timeout = state().login_server.timeout;
    });
}

unsigned short U_SetLoginAuthSrv(IP_ADDR_T address, uint16_t port, const char* shared_key,
                                 uint8_t method, uint8_t timeout, char apply) {
    return changes(call(__func__, address, port, shared_key, method, timeout, apply), [&] {
        state().login_server.address.record = address;
        state().login_server.port = port;
        state().login_server.shared_key.assign(shared_key);
        state().login_server.method = method;
        state().login_server.timeout = timeout;
    });
}
