#include "gui/control/FunctionTrigger.h"

#include "gui/style/WzCustomStyle.h"

#include <QApplication>
#include <QFont>

namespace {

qint32 textSizeOfStyle()
{
    const auto* const style = qobject_cast<const WzCustomStyle*>(QApplication::style());
    return style ? style->functionButtonPointSize() : QApplication::font().pointSize();
}

} // namespace

FunctionTrigger::FunctionTrigger(const QString& text, const QIcon& icon, bool disableWhenLayoutLocked)
    : m_text(text)
    , m_icon(icon)
    , m_disableWhenLayoutLocked(disableWhenLayoutLocked)
    , m_textSize(textSizeOfStyle())
{
}

FunctionTrigger::FunctionTrigger(const QString& text, bool disableWhenLayoutLocked)
    : FunctionTrigger(text, QIcon(), disableWhenLayoutLocked)
{
}

FunctionTrigger::FunctionTrigger(const QIcon& icon, bool disableWhenLayoutLocked)
    : FunctionTrigger(QString(), icon, disableWhenLayoutLocked)
{
}

std::shared_ptr<FunctionTrigger> FunctionTrigger::makeTrigger(const QString& text, const QIcon& icon)
{
    return std::make_shared<FunctionTrigger>(text, icon);
}

template<typename T>
void FunctionTrigger::change(T& member, const T& value)
{
    if (member == value)
        return;
    member = value;
    emit changed();
}

void FunctionTrigger::setSuperscriptText(const QString& text)
{
    change(m_superscript, text);
}

void FunctionTrigger::setButtonInstances(qint32 instances)
{
    change(m_instances, instances);
}

void FunctionTrigger::setButtonSelected(bool selected)
{
    change(m_selected, selected);
}

void FunctionTrigger::setWordWrap(bool wrap)
{
    change(m_wordWrap, wrap);
}

void FunctionTrigger::setTextSize(qint32 points)
{
    change(m_textSize, points);
}
