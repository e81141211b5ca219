#include "gui/picture/PictureHost.h"

#include "feed/FeedMessages.h"
#include "feed/SegmentNames.h"
#include "feed/SharedPictureReader.h"
#include "feed/TcpPictureReader.h"
#include "network/NetworkConnection.h"

#include <QNetworkInterface>

using namespace Velmora::Feed;

PictureHost PictureHost::at(const QString& address)
{
    return {QHostAddress(address), NetworkConnection::kServerTcpPort, kFeedPort};
}

bool PictureHost::isThisMachine() const
{
    return address.isLoopback() || QNetworkInterface::allAddresses().contains(address);
}

std::unique_ptr<PictureReader> PictureHost::makeReader(const std::string& image, QSize size) const
{
    if (address.isNull())
        return nullptr;
    if (isThisMachine())
        return std::make_unique<SharedPictureReader>(SegmentNames::nameOf(instrumentPort, image));
    return std::make_unique<TcpPictureReader>(address, feedPort, image, size);
}
