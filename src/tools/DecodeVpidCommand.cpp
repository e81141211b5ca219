#include "tools/HexArgument.h"
#include "tools/PayloadIdentifierReport.h"
#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "types/sdi/SupportedVideoStandards.h"

#include <QtEndian>

/// Explains a payload identifier.
int ToolCommands::decodeVpid(const ToolContext& context)
{
    const QByteArray bytes = HexArgument::read(context.arguments.first(), sizeof(quint32));
    const Velmora::Sdi::SupportedVideoStandards supported;
    const FactSheet sheet =
        PayloadIdentifierReport::of(qFromBigEndian<quint32>(bytes.constData()), supported);
    const bool printed =
        context.json ? ToolOutput::printLine(sheet.toJson()) : ToolOutput::write(sheet.toText().toUtf8());
    return printed ? 0 : 1;
}
