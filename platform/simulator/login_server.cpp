#include "platform/include/login_server.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

unsigned short U_LoginAuthSrvGetEbl(uint8_t* enabled, uint8_t* kind) {
    return reads("U_LoginAuthSrvGetEbl", [&] {
        *enabled = state().login_server.enabled;
        *kind = state().login_server.kind;
    });
}

unsigned short U_LoginAuthSrvSetEbl(uint8_t enabled, uint8_t kind, char apply) {
    return changes(
        "U_LoginAuthSrvSetEbl",
        [&] {
            state().login_server.enabled = enabled;
            state().login_server.kind = kind;
        },
        enabled, kind, apply);
}

unsigned short U_GetLoginAuthSrv(IP_ADDR_T* address, uint16_t* port, char* shared_key,
                                 uint8_t* method, uint8_t* timeout) {
    return reads("U_GetLoginAuthSrv", [&] {
        *address = state().login_server.address.record;
        *port = state().login_server.port;
        state().login_server.shared_key.copy_to(shared_key, 30);
        *method = state().login_server.method;
        *timeout = state().login_server.timeout;
    });
}

unsigned short U_SetLoginAuthSrv(IP_ADDR_T address, uint16_t port, const char* shared_key,
                                 uint8_t method, uint8_t timeout, char apply) {
    return changes(
        "U_SetLoginAuthSrv",
        [&] {
            state().login_server.address.record = address;
            state().login_server.port = port;
            state().login_server.shared_key.assign(shared_key);
            state().login_server.method = method;
            state().login_server.timeout = timeout;
        },
        address, port, shared_key, method, timeout, apply);
}
