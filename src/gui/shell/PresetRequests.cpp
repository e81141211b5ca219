#include "gui/shell/PresetRequests.h"

#include "gui/framework/ConnectionStatus.h"
#include "gui/shell/PresetFiles.h"

#include "presets/PresetFile.h"
#include "presets/PresetHelper.h"

#include <QScopedValueRollback>

#include <utility>

PresetRequests::PresetRequests(const ConnectionStatus& connection, QObject* parent)
    : QObject(parent)
    , m_connection(connection)
{
    connect(&connection, &ConnectionStatus::changed, this, &PresetRequests::onConnectionChanged);
}

void PresetRequests::follow(PresetHelper& helper)
{
    m_helper = &helper;
    connect(&helper, &PresetHelper::presetsUpdated, this, &PresetRequests::onPresetsUpdated);
}

// --- What there is

bool PresetRequests::isConnected() const
{
    return m_connection.state() != ConnectionStatus::State::NotConnected;
}

QStringList PresetRequests::names() const
{
    return m_helper && isConnected() ? m_helper->getPresetList() : QStringList();
}

qint64 PresetRequests::savedAt(const QString& name) const
{
    return m_helper ? m_helper->savedAt(name) : 0;
}

void PresetRequests::forgetCurrent()
{
    m_current.clear();
    emit changed();
}

QString PresetRequests::whyNot() const
{
    if (!isConnected())
        return m_connection.text();
    return isBusy() ? m_text : QString();
}

QString PresetRequests::faultOf(const QString& name)
{
    if (name.trimmed().isEmpty())
        return tr("A preset needs a name.");
    return name == PresetHelper::kLastKnownState ? tr("The program keeps its own state under that name.")
                                                 : QString();
}

QString PresetRequests::freeName(const QString& name) const
{
    const QStringList taken = names();
    QString free = name;
    for (int number = 2; taken.contains(free); ++number)
        free = QStringLiteral("%1 (%2)").arg(name, QString::number(number));
    return free;
}

// --- Requests

bool PresetRequests::start(Kind kind, const QString& name, const QString& newName)
{
    QString fault = whyNot();
    if (fault.isEmpty())
        fault = faultOf(kind == Kind::Rename ? newName : name);
    if (!fault.isEmpty()) {
        if (!isBusy())
            end(false, fault);
        return false;
    }
    const QStringList now = names();
    m_pending = {kind, name, newName, QSet<QString>(now.begin(), now.end()), savedAt(name)};
    m_hasFailed = false;
    static const char* const kTexts[] = {"",
                                         QT_TR_NOOP("Saving \"%1\", waiting for the instrument"),
                                         QT_TR_NOOP("Saving \"%1\", waiting for the instrument"),
                                         QT_TR_NOOP("Loading \"%1\", waiting for the instrument"),
                                         QT_TR_NOOP("Renaming \"%1\", waiting for the instrument"),
                                         QT_TR_NOOP("Deleting \"%1\", waiting for the instrument"),
                                         QT_TR_NOOP("Exporting \"%1\", waiting for the instrument"),
                                         QT_TR_NOOP("Importing \"%1\", waiting for the instrument")};
    m_text = tr(kTexts[static_cast<std::size_t>(kind)]).arg(name);
    m_timer.start(m_answerMs, this);
    emit changed();
    return true;
}

void PresetRequests::save(const QString& name)
{
    if (start(Kind::Save, name))
        emit createWanted(name);
}

void PresetRequests::overwrite(const QString& name)
{
    if (start(Kind::Overwrite, name))
        emit overwriteWanted(name);
}

void PresetRequests::load(const QString& name)
{
    if (start(Kind::Load, name))
        emit loadWanted(name);
}

void PresetRequests::rename(const QString& name, const QString& newName)
{
    if (name == newName || !start(Kind::Rename, name, newName))
        return;
    m_helper->setRenamedPreset(name, newName);
    emit renameWanted(name, newName);
}

void PresetRequests::remove(const QString& name)
{
    if (!start(Kind::Delete, name))
        return;
    m_helper->setDeletedPreset(name);
    emit deleteWanted(name);
}

void PresetRequests::exportToFile(const QString& name)
{
    if (start(Kind::Export, name))
        emit fetchWanted(name);
}

void PresetRequests::importFrom(const QString& path)
{
    QString reason;
    const auto preset = PresetFile::read(path, reason);
    if (!preset) {
        if (!isBusy())
            end(false, tr("That file holds no preset (%1).").arg(reason));
        return;
    }
    const QString name = freeName(PresetFiles::nameOf(*preset, path));
    if (start(Kind::Import, name))
        emit storeWanted(name, *preset);
}

void PresetRequests::rearrange(const QStringList& names)
{
    if (!m_helper)
        return;
    {
        // What comes of it is no answer of the instrument.
        const QScopedValueRollback rearranging(m_isRearranging, true);
        m_helper->setNewPresetOrder(names);
    }
    emit changed();
}

// --- Answers

void PresetRequests::onPresetsUpdated()
{
    if (m_isRearranging)
        return;
    const QStringList now = names();
    const QSet<QString> namesNow(now.begin(), now.end());
    if (isDone(namesNow)) {
        noteCurrent();
        end(true, doneText());
    } else if (isRefused(namesNow)) {
        end(false, refusedText());
    } else {
        emit changed();
    }
}

bool PresetRequests::isDone(const QSet<QString>& namesNow) const
{
    switch (m_pending.kind) {
    case Kind::Save:
    case Kind::Import:
        return namesNow.contains(m_pending.name);
    case Kind::Overwrite:
        // Not every instrument tells the time by which it could be seen.
        return namesNow.contains(m_pending.name)
            && (m_pending.savedBefore == 0 || savedAt(m_pending.name) != m_pending.savedBefore);
    case Kind::Rename:
        return namesNow.contains(m_pending.newName) && !namesNow.contains(m_pending.name);
    case Kind::Delete:
        return !namesNow.contains(m_pending.name);
    default:
        return false;
    }
}

/// An inventory in which nothing has changed says no. One that tells of what another client has done does
/// not.
bool PresetRequests::isRefused(const QSet<QString>& namesNow) const
{
    const bool waitsForInventory = isBusy() && m_pending.kind != Kind::Load && m_pending.kind != Kind::Export;
    return waitsForInventory && namesNow == m_pending.namesBefore
        && savedAt(m_pending.name) == m_pending.savedBefore;
}

void PresetRequests::onAnswered(const QString& name, WzClientPresetManager::Answer answer)
{
    using Answer = WzClientPresetManager::Answer;
    const bool isMeant =
        (m_pending.kind == Kind::Load || m_pending.kind == Kind::Export) && name == m_pending.name;
    if (!isMeant)
        return;
    switch (answer) {
    case Answer::Came:
        noteCurrent();
        end(true, doneText());
        break;
    case Answer::NoSuchPreset:
        end(false, tr("The instrument has no preset \"%1\" that can be read.").arg(name));
        break;
    case Answer::None:
        end(false, tr("The instrument does not answer. The screen is unchanged."));
        break;
    case Answer::ConnectionLost:
        onConnectionChanged();
        break;
    }
}

void PresetRequests::onPresetFetched(const WzClientPreset& preset)
{
    if (m_pending.kind != Kind::Export)
        return;
    const QString path = PresetFiles::save(m_pending.name, preset);
    end(!path.isEmpty(), path.isEmpty() ? tr("The file could not be written.") : tr("Saved as %1").arg(path));
}

void PresetRequests::timerEvent(QTimerEvent*)
{
    if (m_pending.kind == Kind::Load || m_pending.kind == Kind::Export)
        end(false, tr("The instrument does not answer. The screen is unchanged."));
    else
        end(false, tr("The instrument does not answer. Whether it has done it is not known."));
}

void PresetRequests::onConnectionChanged()
{
    if (isBusy() && !isConnected())
        end(false, tr("The connection was lost before the instrument had answered."));
    else
        emit changed();
}

void PresetRequests::noteCurrent()
{
    const bool isLoaded = m_pending.kind == Kind::Load;
    if (isLoaded || m_pending.kind == Kind::Save || m_pending.kind == Kind::Overwrite) {
        m_current = m_pending.name;
        m_currentIsLoaded = isLoaded;
    } else if (m_pending.name == m_current) {
        if (m_pending.kind == Kind::Rename)
            m_current = m_pending.newName;
        else if (m_pending.kind == Kind::Delete)
            m_current.clear();
    }
}

QString PresetRequests::doneText() const
{
    switch (m_pending.kind) {
    case Kind::Load:
        return tr("Loaded \"%1\".").arg(m_pending.name);
    case Kind::Rename:
        return tr("\"%1\" is called \"%2\" now.").arg(m_pending.name, m_pending.newName);
    case Kind::Delete:
        return tr("Deleted \"%1\".").arg(m_pending.name);
    case Kind::Import:
        return tr("Imported \"%1\".").arg(m_pending.name);
    default:
        return tr("Saved \"%1\".").arg(m_pending.name);
    }
}

QString PresetRequests::refusedText() const
{
    switch (m_pending.kind) {
    case Kind::Rename:
        return tr("The instrument does not rename it to \"%1\".").arg(m_pending.newName);
    case Kind::Delete:
        return tr("The instrument does not delete \"%1\".").arg(m_pending.name);
    default:
        return tr("The instrument does not keep \"%1\".").arg(m_pending.name);
    }
}

void PresetRequests::end(bool succeeded, const QString& text)
{
    m_timer.stop();
    const Kind kind = std::exchange(m_pending, Request()).kind;
    m_text = text;
    m_hasFailed = !succeeded;
    emit changed();
    emit ended(kind, succeeded);
}
