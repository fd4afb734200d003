// The three sections are applied together. With an unknown mode none of them is; the
// library's QoS is initialised instead. A mapping is applied only if the document has
// all of its keys.

#include "sections/switching/qos.h"

#include "platform/include/qos.h"

#include <iterator>

namespace {

constexpr int queues = 8;
constexpr int priorities = 8;
constexpr int code_points = 64;

static_assert(std::size(TstFlshSchedulemode().paiWeights) == queues);
static_assert(std::size(TstFlshCosQueueMapping().pcpq) == priorities);
static_assert(std::size(TstFlshDscpMapping().dscp) == code_points);

constexpr char strict_priority[] = "Strict Priority";
constexpr char weighted_round_robin[] = "Weighted Round-Robin";
constexpr char by_cos[] = "802.1p CoS only";
constexpr char by_cos_and_dscp[] = "Both 802.1p CoS and DiffServ";
constexpr char no_dscp[] = "DSCP doesn't support 802.1p CoS only.";

TstFlshSchedulemode stored_mode() {
    TstFlshSchedulemode mode = {};
    U_QosGetScheduleMode(&mode);
    return mode;
}

void write_weights(FILE* ini_file, const TstFlshSchedulemode& mode) {
    for (int queue = 0; queue < queues; ++queue) {
        fprintf(ini_file, "Q%d                              = \"%d packets\" ;\n", queue,
                static_cast<std::int32_t>(mode.paiWeights[queue]));
    }
}

void write_classification(FILE* ini_file, classification_t classify) {
    if (classify == IEE_PCP) {
        fprintf(ini_file, "Classification Type             = \"%s\" ;\n", by_cos);
    } else if (classify == IEE_PCP_PLUS_IP_DSCP) {
        fprintf(ini_file, "Classification Type             = \"%s\" ;\n", by_cos_and_dscp);
    }
}

} // namespace

void backup_ini_qos_settings(FILE* ini_file) {
    write_section_line(ini_file, "QoS Setting");
    const TstFlshSchedulemode mode = stored_mode();
    if (mode.sch == QOS_STRICT_PRIORITY) {
        fprintf(ini_file, "mode                            = \"%s\" ;\n", strict_priority);
    } else if (mode.sch == QOS_WEIGHTED_ROUND_ROBIN) {
        fprintf(ini_file, "mode                            = \"%s\" ;\n", weighted_round_robin);
        write_weights(ini_file, mode);
    }
    write_classification(ini_file, mode.classify);
}

void backup_ini_cos_queue_mapping(FILE* ini_file) {
    TstFlshCosQueueMapping mapping = {};
    write_section_line(ini_file, "CoS Queue Mapping");
    U_QosGetcosqueuemapping(&mapping);
    for (int priority = 0; priority < priorities; ++priority) {
        fprintf(ini_file, "%d             = \"Q%d\" ;\n", priority, mapping.pcpq[priority]);
    }
}

void backup_ini_dscp_mapping(FILE* ini_file) {
    TstFlshDscpMapping mapping = {};
    write_section_line(ini_file, "DSCP Mapping");
    const TstFlshSchedulemode mode = stored_mode();
    U_QosGetdscpmapping(&mapping);
    if (mode.classify == IEE_PCP) {
        fprintf(ini_file, "Message             = \"%s\" ;\n", no_dscp);
        return;
    }
    for (int code = 0; code < code_points; ++code) {
        fprintf(ini_file, "0x%02lX(%d)             = \"%d\" ;\n", static_cast<unsigned long>(code),
                code, mapping.dscp[code]);
    }
}

namespace {

using QosText = Text<50>;

QosText read_qos_text(const dictionary* ini, const char* entry) {
    return read_text<sizeof(QosText)>(ini, entry);
}

bool is_empty(const QosText& value) {
    return value.chars[0] == '\0';
}

bool equals(const QosText& value, const char* text) {
    return strcmp(value.chars, text) == 0;
}

void read_weights(const dictionary* ini, TstFlshSchedulemode& mode) {
    for (int queue = 0; queue < queues; ++queue) {
        const QosText weight = read_qos_text(ini, EntryName("QoS Setting:Q%d", queue));
        mode.paiWeights[queue] = static_cast<std::uint32_t>(decimal_value(weight.chars));
    }
}

// False if the document's mode is unknown. With strict priority the document has no
// weights, and the device keeps its own.
bool read_mode(const dictionary* ini, const TstFlshSchedulemode& old, TstFlshSchedulemode& mode) {
    const QosText text = read_qos_text(ini, "QoS Setting:mode");
    if (equals(text, strict_priority)) {
        mode.sch = QOS_STRICT_PRIORITY;
        memcpy(mode.paiWeights, old.paiWeights, sizeof mode.paiWeights);
        return true;
    }
    if (equals(text, weighted_round_robin)) {
        mode.sch = QOS_WEIGHTED_ROUND_ROBIN;
        read_weights(ini, mode);
        return true;
    }
    return false;
}

// Backup writes no text for any other classification: it is restored as none.
classification_t read_classification(const dictionary* ini) {
    const QosText text = read_qos_text(ini, "QoS Setting:Classification Type");
    if (equals(text, by_cos)) {
        return IEE_PCP;
    }
    return equals(text, by_cos_and_dscp) ? IEE_PCP_PLUS_IP_DSCP : CLASSIFY_NONE;
}

} // namespace

void restore_ini_qos(const dictionary* ini) {
    TstFlshSchedulemode mode = {};
    const TstFlshSchedulemode old = stored_mode();
    if (!read_mode(ini, old, mode)) {
        U_QosInit();
        return;
    }
    mode.classify = read_classification(ini);
    U_QosSetScheduleMode(&mode);
    restore_ini_cos(ini);
    restore_ini_dscp(ini);
}

// Skips the first character of a value, the "Q", whatever it is.
void restore_ini_cos(const dictionary* ini) {
    TstFlshCosQueueMapping mapping = {};
    for (int priority = 0; priority < priorities; ++priority) {
        const QosText queue = read_qos_text(ini, EntryName("CoS Queue Mapping:%d", priority));
        if (is_empty(queue)) {
            return;
        }
        mapping.pcpq[priority] = static_cast<std::uint8_t>(decimal_value(queue.chars + 1));
    }
    U_QosSetcosqueuemapping(&mapping);
}

void restore_ini_dscp(const dictionary* ini) {
    TstFlshDscpMapping mapping = {};
    if (equals(read_qos_text(ini, "DSCP Mapping:Message"), no_dscp)) {
        return;
    }
    for (int code = 0; code < code_points; ++code) {
        const QosText value = read_qos_text(
            ini, EntryName("DSCP Mapping:0x%02lX(%d)", static_cast<unsigned long>(code), code));
        if (is_empty(value)) {
            return;
        }
        mapping.dscp[code] = static_cast<std::uint8_t>(decimal_value(value.chars));
    }
    U_QosSetdscpmapping(&mapping);
}
