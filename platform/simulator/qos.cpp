// Choices of this switch: any value is stored, and the initialisation restores
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

Written written_record(const TstFlshSchedulemode& mode) {
    return {"TstFlshSchedulemode{sch=" + written(mode.sch) + ", paiWeights=" +
            written_list(mode.paiWeights).text + ", classify=" + written(mode.classify) + "}"};
}

} // namespace

int U_QosGetScheduleMode(TstFlshSchedulemode* mode) {
    return reads(call(__func__), [&] {
        mode->sch = qos().scheduling;
        std::copy(qos().weights.begin(), qos().weights.end(), mode->paiWeights);
        mode->classify = qos().classification;
    });
}

int U_QosSetScheduleMode(TstFlshSchedulemode* mode) {
    return changes(call(__func__, written_record(*mode)), [&] {
        qos().scheduling = mode->sch;
        std::copy(std::begin(mode->paiWeights), std::end(mode->paiWeights), qos().weights.begin());
        qos().classification = mode->classify;
    });
}

int U_QosGetcosqueuemapping(TstFlshCosQueueMapping* mapping) {
    return reads(call(__func__),
                 [&] { std::copy(qos().cos.begin(), qos().cos.end(), mapping->pcpq); });
}

int U_QosSetcosqueuemapping(TstFlshCosQueueMapping* mapping) {
    return changes(call(__func__, written_list(mapping->pcpq)), [&] {
        std::copy(std::begin(mapping->pcpq), std::end(mapping->pcpq), qos().cos.begin());
    });
}

int U_QosGetdscpmapping(TstFlshDscpMapping* mapping) {
    return reads(call(__func__),
                 [&] { std::copy(qos().dscp.begin(), qos().dscp.end(), mapping->dscp); });
}

int U_QosSetdscpmapping(TstFlshDscpMapping* mapping) {
    return changes(call(__func__, written_list(mapping->dscp)), [&] {
        std::copy(std::begin(mapping->dscp), std::end(mapping->dscp), qos().dscp.begin());
    });
}

int U_QosInit(void) {
    return changes(call(__func__), [] { qos() = Qos(); });
}
