// Choices of this switch: any value is stored. The initialisation brings back
// the factory defaults.

#include "platform/include/qos.h"

#include "platform/simulator/gate.h"
#include "platform/simulator/state.h"

#include <algorithm>
#include <iterator>

using namespace simulator;

namespace {

Qos& qos() {
    return state().qos;
}

template <typename Numbers>
std::string written_list(const Numbers& numbers) {
    std::string list;
    for (const auto number : numbers) {
        list += (list.empty() ? "" : ",") + written(number);
    }
    return "{" + list + "}";
}

Written written_record(const TstFlshSchedulemode& mode) {
    return {"TstFlshSchedulemode{sch=" + written(mode.sch) + ", paiWeights=" +
            written_list(mode.paiWeights) + ", classify=" + written(mode.classify) + "}"};
}

} // namespace

int U_QosGetScheduleMode(TstFlshSchedulemode* mode) {
    return reads("U_QosGetScheduleMode", [&] {
        mode->sch = qos().scheduling;
        std::copy(qos().weights.begin(), qos().weights.end(), mode->paiWeights);
        mode->classify = qos().classification;
    });
}

int U_QosSetScheduleMode(TstFlshSchedulemode* mode) {
    return changes(
        "U_QosSetScheduleMode",
        [&] {
            qos().scheduling = mode->sch;
            std::copy(std::begin(mode->paiWeights), std::end(mode->paiWeights),
                      qos().weights.begin());
            qos().classification = mode->classify;
        },
        written_record(*mode));
}

int U_QosGetcosqueuemapping(TstFlshCosQueueMapping* mapping) {
    return reads("U_QosGetcosqueuemapping",
                 [&] { std::copy(qos().cos.begin(), qos().cos.end(), mapping->pcpq); });
}

int U_QosSetcosqueuemapping(TstFlshCosQueueMapping* mapping) {
    return changes(
        "U_QosSetcosqueuemapping",
        [&] { std::copy(std::begin(mapping->pcpq), std::end(mapping->pcpq), qos().cos.begin()); },
        Written{written_list(mapping->pcpq)});
}

int U_QosGetdscpmapping(TstFlshDscpMapping* mapping) {
    return reads("U_QosGetdscpmapping",
                 [&] { std::copy(qos().dscp.begin(), qos().dscp.end(), mapping->dscp); });
}

int U_QosSetdscpmapping(TstFlshDscpMapping* mapping) {
    return changes(
        "U_QosSetdscpmapping",
        [&] { std::copy(std::begin(mapping->dscp), std::end(mapping->dscp), qos().dscp.begin()); },
        Written{written_list(mapping->dscp)});
}

int U_QosInit(void) {
    return changes("U_QosInit", [] { qos() = Qos(); });
}
