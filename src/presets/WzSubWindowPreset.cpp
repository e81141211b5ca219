#include "presets/WzSubWindowPreset.h"

namespace {

constexpr QLatin1String kContentClassKey("windowContentClass", 18);
constexpr QLatin1String kTitleKey("windowTitle", 11);
constexpr QLatin1String kRoleKey("windowRole", 10);
constexpr QLatin1String kFullScreenInFocusKey("windowFullScreenInFocus", 23);
constexpr QLatin1String kContentSettingsKey("windowContentSettings", 21);
constexpr QLatin1String kStayOnTopKey("stayOnTop", 9);
constexpr QLatin1String kInstanceNumberKey("instanceNumber", 14);
constexpr QLatin1String kAnalyserIdKey("analyserId", 10);

} // namespace

struct WzSubWindowPreset::RectKeys {
    QLatin1String x;
    QLatin1String y;
    QLatin1String width;
    QLatin1String height;
};

const WzSubWindowPreset::RectKeys WzSubWindowPreset::kBoundsKeys{
    QLatin1String("windowX"), QLatin1String("windowY"), QLatin1String("windowWidth"),
    QLatin1String("windowHeight")};
const WzSubWindowPreset::RectKeys WzSubWindowPreset::kLockedDefaultBoundsKeys{
    QLatin1String("windowLockedDefaultX"), QLatin1String("windowLockedDefaultY"),
    QLatin1String("windowLockedDefaultWidth"), QLatin1String("windowLockedDefaultHeight")};

WzSubWindowPreset::WzSubWindowPreset(const QString& windowContentClassName)
    : PresetPacket(QString(kClassName))
{
    setWindowContentClassName(windowContentClassName);
}

QString WzSubWindowPreset::getWindowContentClassName() const
{
    return stringValue(kContentClassKey);
}

void WzSubWindowPreset::setWindowContentClassName(const QString& name)
{
    setValue(kContentClassKey, name);
}

void WzSubWindowPreset::setWindowTitle(const QString& title)
{
    setValue(kTitleKey, title);
}

bool WzSubWindowPreset::containsWindowTitle() const
{
    return containsType(kTitleKey, QJsonValue::String);
}

QString WzSubWindowPreset::getWindowTitle() const
{
    return stringValue(kTitleKey);
}

void WzSubWindowPreset::setWindowRole(WindowRole role)
{
    setValue(kRoleKey, static_cast<int>(role));
}

bool WzSubWindowPreset::containsWindowRole() const
{
    const int role = intValue(kRoleKey);
    return containsInt(kRoleKey) && role >= static_cast<int>(WindowRole::Instrument)
        && role <= static_cast<int>(WindowRole::System);
}

WindowRole WzSubWindowPreset::getWindowRole() const
{
    return containsWindowRole() ? static_cast<WindowRole>(intValue(kRoleKey)) : WindowRole::Instrument;
}

void WzSubWindowPreset::setWindowBounds(const QRect& bounds)
{
    setRect(kBoundsKeys, bounds);
}

bool WzSubWindowPreset::containsWindowBounds() const
{
    return containsRect(kBoundsKeys);
}

QRect WzSubWindowPreset::getWindowBounds() const
{
    return getRect(kBoundsKeys);
}

void WzSubWindowPreset::setWindowLockedDefaultBounds(const QRect& bounds)
{
    setRect(kLockedDefaultBoundsKeys, bounds);
}

bool WzSubWindowPreset::containsWindowLockedDefaultBounds() const
{
    return containsRect(kLockedDefaultBoundsKeys);
}

QRect WzSubWindowPreset::getWindowLockedDefaultBounds() const
{
    return getRect(kLockedDefaultBoundsKeys);
}

void WzSubWindowPreset::setWindowFullScreenInFocus(bool fullScreenInFocus)
{
    setValue(kFullScreenInFocusKey, fullScreenInFocus);
}

bool WzSubWindowPreset::containsWindowFullScreenInFocus() const
{
    return containsType(kFullScreenInFocusKey, QJsonValue::Bool);
}

bool WzSubWindowPreset::getWindowFullScreenInFocus() const
{
    return value(kFullScreenInFocusKey).toBool();
}

void WzSubWindowPreset::setWindowContentPreset(const SerialisableDataPacket& preset)
{
    insertOtherPacketIntoThis(kContentSettingsKey, preset);
}

bool WzSubWindowPreset::containsWindowContentPreset() const
{
    return containsType(kContentSettingsKey, QJsonValue::Object);
}

SerialisableDataPacket WzSubWindowPreset::getWindowContentsPreset() const
{
    bool ok = false;
    return extractOtherPacketFromThis(kContentSettingsKey, ok);
}

void WzSubWindowPreset::setStayOnTopState(bool stayOnTop)
{
    setValue(kStayOnTopKey, stayOnTop);
}

bool WzSubWindowPreset::containsStayOnTopState() const
{
    return containsType(kStayOnTopKey, QJsonValue::Bool);
}

bool WzSubWindowPreset::getStayOnTopState() const
{
    return value(kStayOnTopKey).toBool();
}

void WzSubWindowPreset::setInstanceNumber(int instanceNumber)
{
    setValue(kInstanceNumberKey, instanceNumber);
}

bool WzSubWindowPreset::containsInstanceNumber() const
{
    return containsInt(kInstanceNumberKey);
}

int WzSubWindowPreset::getInstanceNumber() const
{
    return intValue(kInstanceNumberKey);
}

void WzSubWindowPreset::setAnalyserId(quint32 analyserId)
{
    setValue(kAnalyserIdKey, static_cast<qint64>(analyserId));
}

bool WzSubWindowPreset::containsAnalyserId() const
{
    return containsUnsigned(kAnalyserIdKey);
}

quint32 WzSubWindowPreset::getAnalyserId() const
{
    return unsignedValue(kAnalyserIdKey);
}

void WzSubWindowPreset::setRect(const RectKeys& keys, const QRect& rect)
{
    setValue(keys.x, rect.x());
    setValue(keys.y, rect.y());
    setValue(keys.width, rect.right() - rect.left() + 1);
    setValue(keys.height, rect.bottom() - rect.top() + 1);
}

bool WzSubWindowPreset::containsRect(const RectKeys& keys) const
{
    return containsInt(keys.x) && containsInt(keys.y) && containsInt(keys.width) && containsInt(keys.height);
}

QRect WzSubWindowPreset::getRect(const RectKeys& keys) const
{
    // Far outside any screen, and still small enough to be added up.
    static constexpr int kFurthest = 1'000'000;
    const auto bounded = [this](QLatin1String key) { return qBound(-kFurthest, intValue(key), kFurthest); };
    return {bounded(keys.x), bounded(keys.y), bounded(keys.width), bounded(keys.height)};
}
