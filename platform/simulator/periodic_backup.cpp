#include "platform/include/periodic_backup.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

using namespace simulator;

namespace {

Written written_record(const TstFlshPeriodic& setting) {
    return {"TstFlshPeriodic{backUp=" + written(setting.backUp) +
            ", tm_hour=" + written(setting.tm_hour) + ", tm_min=" + written(setting.tm_min) +
            ", serverIp=" + written(Ipv4{setting.serverIp}) + "}"};
}

} // namespace

unsigned short U_GetPeriodicSetting(TstFlshPeriodic* setting) {
    return reads(call(__func__), [&] {
        const PeriodicBackup& stored = state().periodic_backup;
        setting->backUp = static_cast<char>(stored.enabled);
        setting->tm_hour = stored.hour;
        setting->tm_min = stored.minute;
        setting->serverIp = stored.server.value;
    });
}

unsigned short U_SetPeriodicSetting(TstFlshPeriodic* setting) {
    return changes(call(__func__, written_record(*setting)), [&] {
        state().periodic_backup = {static_cast<int8_t>(setting->backUp),
                                   setting->tm_hour,
                                   setting->tm_min,
                                   {setting->serverIp}};
    });
}
