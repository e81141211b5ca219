// Whatever JSON a node is given, reading it from its bytes and from a QJsonObject does the same; a fault
// changes nothing, and what was taken over reads back as it is written. A typed node takes any items, and
// what it can read it writes in a form that stays.

#include "Check.h"
#include "datacore/DatacoreBase.h"
#include "datacore/nodes/DatacoreActivePictureCrcValuesList.h"
#include "datacore/nodes/DatacoreAudioFlowChannelMap.h"
#include "datacore/nodes/DatacoreAudioFlowDataStruct.h"
#include "datacore/nodes/DatacoreAudioMonitorSelection.h"
#include "datacore/nodes/DatacoreBool.h"
#include "datacore/nodes/DatacoreDolbyMetadataProgramParameters.h"
#include "datacore/nodes/DatacoreFalseColourOverlayRangesSummary.h"
#include "datacore/nodes/DatacoreGrandmasterInfo.h"
#include "datacore/nodes/DatacoreIpAddressV4.h"
#include "datacore/nodes/DatacoreMacAddress.h"
#include "datacore/nodes/DatacoreMacAddressAndValidity.h"
#include "datacore/nodes/DatacoreMulticastRequest.h"
#include "datacore/nodes/DatacoreMulticastStatus.h"
#include "datacore/nodes/DatacoreNumber.h"
#include "datacore/nodes/DatacorePoint.h"
#include "datacore/nodes/DatacorePtpMonitoring.h"
#include "datacore/nodes/DatacoreSdiOutputSlewRate.h"
#include "datacore/nodes/DatacoreVectorscopeUserMarker.h"
#include "datacore/nodes/DatacoreVideoStandard.h"
#include "datacore/nodes/DatacoreVideoStandard2110.h"
#include "datacore/nodes/DatacoreVideoStandard2110AndStatus.h"
#include "datacore/nodes/DatacoreVideoStandard2110Params.h"
#include "datacore/nodes/DatacoreVideoStandardStats.h"
#include "network/JsonObjectReader.h"
#include "network/JsonObjectWriter.h"

#include <QJsonDocument>

#include <cstdint>

namespace {

/// A node with a child, in a state that a fault must not change.
struct Nodes {
    Nodes()
        : root(QStringLiteral("C"), QStringLiteral("n"), nullptr, QStringLiteral("1"))
        , child(QString(), QStringLiteral("c"), &root, std::deque<QString>{QStringLiteral("1"), QString()})
    {
        child.setValid({DatacoreValidStatusMessage(21)});
    }

    QJsonObject state() const
    {
        QJsonObject json;
        std::list<DatacoreJsonMessage> unused;
        FUZZ_CHECK(root.appendDataToJson(QString(), json, false, true, unused));
        return json;
    }

    DatacoreBase root;
    DatacoreBase child;
    std::list<DatacoreJsonMessage> messages;
};

using ValidMessages = std::list<DatacoreValidStatusMessage>;

bool isSame(const std::list<DatacoreJsonMessage>& a, const std::list<DatacoreJsonMessage>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

QJsonObject asWritten(const DatacoreBase& node)
{
    JsonObjectWriter writer;
    node.writeOwnData(writer, false);
    return QJsonDocument::fromJson(writer.take()).object();
}

template<typename Node>
void checkTyped(const QStringList& items)
{
    Node node(QStringLiteral("t"), nullptr);
    node.setDataList(items);
    node.revalidateAll();
    FUZZ_CHECK(node.getDataList() == items);
    if constexpr (requires(ValidMessages & m) { node.getValueAndValidateThatItIsDeserialisable(m); }) {
        ValidMessages messages;
        const auto value = node.getValueAndValidateThatItIsDeserialisable(messages);
        FUZZ_CHECK(value.has_value() == messages.empty());
        if (!value)
            return;
        const Node written(QStringLiteral("t"), nullptr, *value);
        const auto again = written.getValueAndValidateThatItIsDeserialisable(messages);
        FUZZ_CHECK(again.has_value());
        FUZZ_CHECK(Node(QStringLiteral("t"), nullptr, *again).getDataList() == written.getDataList());
    }
}

template<typename... Nodes>
void checkAllTyped(const QStringList& items)
{
    (checkTyped<Nodes>(items), ...);
}

} // namespace

/// Qt 5.15 loses the first of two values of the same key when it is an object or an array.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libQt5Core.so";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto text = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QJsonObject json = QJsonDocument::fromJson(text).object();
    const bool skipStatus = size % 2;

    Nodes fromObject;
    const QJsonObject before = fromObject.state();
    const bool done = fromObject.root.populateDataFromJson(QString(), json, skipStatus, fromObject.messages);
    FUZZ_CHECK(done == fromObject.messages.empty());
    FUZZ_CHECK(done || fromObject.state() == before);

    const JsonObjectReader reader(text.constData(), text.size());
    if (reader.verdict() == JsonObjectReader::Verdict::Object) {
        Nodes fromBytes;
        const bool same = fromBytes.root.populateDataFromView(reader.root(), skipStatus, fromBytes.messages);
        FUZZ_CHECK(same == done);
        FUZZ_CHECK(isSame(fromBytes.messages, fromObject.messages));
        FUZZ_CHECK(fromBytes.state() == fromObject.state());
    }

    Nodes again;
    FUZZ_CHECK(again.root.populateDataFromJson(QString(), fromObject.state(), false, again.messages));
    FUZZ_CHECK(again.state() == fromObject.state());
    QJsonObject own;
    FUZZ_CHECK(fromObject.root.appendDataToJson(QString(), own, false, false, again.messages));
    FUZZ_CHECK(asWritten(fromObject.root) == own);

    checkAllTyped<DatacoreActivePictureCrcValuesList, DatacoreAudioFlowChannelMap,
                  DatacoreAudioFlowDataStruct, DatacoreAudioMonitorSelection, DatacoreBool,
                  DatacoreDolbyMetadataProgramParameters, DatacoreFalseColourOverlayRangesSummary,
                  DatacoreGrandmasterInfo, DatacoreIpAddressV4, DatacoreMacAddress,
                  DatacoreMacAddressAndValidity, DatacoreMulticastRequest, DatacoreMulticastStatus,
                  DatacoreNumber<double>, DatacoreNumber<unsigned int>, DatacorePoint, DatacorePtpMonitoring,
                  DatacoreSdiOutputSlewRate, DatacoreVectorscopeUserMarker, DatacoreVideoStandard,
                  DatacoreVideoStandard2110, DatacoreVideoStandard2110AndStatus,
                  DatacoreVideoStandard2110Params, DatacoreVideoStandardStats>(fromObject.root.getDataList());
    return 0;
}
