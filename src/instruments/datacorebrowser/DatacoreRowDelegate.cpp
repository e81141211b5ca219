#include "instruments/datacorebrowser/DatacoreRowDelegate.h"

#include "gui/style/Fonts.h"
#include "gui/style/Icons.h"
#include "gui/style/WzCustomStyle.h"

#include <QEvent>
#include <QLineEdit>
#include <QPainter>

namespace {

using Worst = DatacoreTreeModel::Worst;
using Confirmation = DatacoreTreeModel::Confirmation;

constexpr int kIconSize = 20;
constexpr int kMargin = 8;
constexpr int kLargeRow = 36;
constexpr int kRadius = 4;

QRect fieldIn(const QRect& cell)
{
    return cell.adjusted(2, 2, -kMargin, -2);
}

} // namespace

DatacoreRowDelegate::DatacoreRowDelegate(const WzCustomStyle& style, const DatacoreTreeModel& model,
                                         QObject* parent)
    : QStyledItemDelegate(parent)
    , m_style(style)
    , m_model(model)
{
    setRowHeight(m_rowHeight);
    updateColours(1);
}

void DatacoreRowDelegate::updateColours(qreal devicePixelRatio)
{
    m_colours = m_style.instrumentPalette();
    const auto icon = [&](IconId id, const char* name, ColourRole role) {
        m_icons[id] = Icons::pixmap(Icons::path(QString::fromLatin1(name)), kIconSize, m_colours.colour(role),
                                    devicePixelRatio);
    };
    // What is as it should be does not call for attention.
    icon(OkIcon, "status-ok", ColourRole::DisabledText);
    icon(InformationIcon, "status-information", ColourRole::Information);
    icon(WarningIcon, "status-warning", ColourRole::Warning);
    icon(ErrorIcon, "status-error", ColourRole::Error);
    icon(InactiveIcon, "mute", ColourRole::DisabledText);
    icon(WaitingIcon, "waiting", ColourRole::Accent);
    icon(OverdueIcon, "status-warning", ColourRole::Accent);
}

void DatacoreRowDelegate::setRowHeight(int height)
{
    m_rowHeight = height;
    const bool large = height >= kLargeRow;
    m_font = Fonts::ofPixels(large ? Fonts::kBodyPixels : Fonts::kTitlePixels);
    m_smallFont = Fonts::ofPixels(large ? Fonts::kTitlePixels : Fonts::kLabelPixels);
}

QSize DatacoreRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, m_rowHeight};
}

void DatacoreRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    const DatacoreTreeModel::Look look = m_model.lookOf(index);
    const QString text = index.data().toString();
    const QRect room = option.rect.adjusted(kMargin, 0, -kMargin, 0);
    if (option.state.testFlag(QStyle::State_Selected))
        painter->fillRect(option.rect, m_colours.colour(ColourRole::Selected));
    switch (index.column()) {
    case DatacoreTreeModel::Name:
        paintText(*painter, room, text, m_font,
                  m_colours.colour(look.isActive ? ColourRole::Text : ColourRole::DisabledText));
        break;
    case DatacoreTreeModel::Value:
        paintValue(*painter, option.rect, text, look);
        break;
    case DatacoreTreeModel::Validity:
        paintValidity(*painter, option.rect, look);
        break;
    default:
        paintText(*painter, room, text, m_smallFont, m_colours.colour(ColourRole::SecondaryText));
    }
}

void DatacoreRowDelegate::paintValue(QPainter& painter, const QRect& cell, const QString& text,
                                     const DatacoreTreeModel::Look& look) const
{
    const bool awaited = look.confirmation != Confirmation::Confirmed;
    QRect room = cell.adjusted(kMargin + 2, 0, -2 * kMargin, 0);
    if (look.isWritable || awaited) {
        QPen edge(m_colours.colour(look.isActive ? ColourRole::Border : ColourRole::Frame), 1);
        if (awaited) {
            // 7 on, 5 off, in units of the pen's width.
            edge = QPen(m_colours.colour(ColourRole::Accent), 2);
            edge.setDashPattern({3.5, 2.5});
            edge.setCapStyle(Qt::FlatCap);
        }
        const qreal half = edge.widthF() / 2;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(edge);
        painter.setBrush(
            m_colours.colour(look.isActive ? ColourRole::InstrumentBackground : ColourRole::DisabledFill));
        painter.drawRoundedRect(QRectF(fieldIn(cell)).adjusted(half, half, -half, -half), kRadius, kRadius);
        painter.restore();
    }
    if (awaited) {
        room.setRight(fieldIn(cell).right() - kIconSize - kMargin);
        paintIcon(painter, cell, room.right() + kMargin / 2,
                  look.confirmation == Confirmation::Overdue ? OverdueIcon : WaitingIcon);
    }
    const bool isDim = look.worst == Worst::NoValue || !look.isActive;
    const ColourRole role = isDim ? ColourRole::DisabledText
        : look.isInner            ? ColourRole::SecondaryText
                                  : ColourRole::Text;
    paintText(painter, room, text, look.isInner ? m_smallFont : m_font, m_colours.colour(role));
}

void DatacoreRowDelegate::paintValidity(QPainter& painter, const QRect& cell,
                                        const DatacoreTreeModel::Look& look) const
{
    const bool isFine = look.worst == Worst::Valid && look.isActive;
    if (look.worst == Worst::NoValue || (look.isInner && isFine))
        return;
    const auto [icon, word] = statusOf(look);
    paintIcon(painter, cell, cell.left() + kMargin, icon);
    if (m_showsWords)
        paintText(painter, cell.adjusted(2 * kMargin + kIconSize, 0, 0, 0), word, m_smallFont,
                  m_colours.colour(icon == OkIcon || icon == InactiveIcon ? ColourRole::SecondaryText
                                                                          : ColourRole::Text));
}

std::pair<DatacoreRowDelegate::IconId, QString>
DatacoreRowDelegate::statusOf(const DatacoreTreeModel::Look& look)
{
    switch (look.worst) {
    case Worst::Error:
        return {ErrorIcon, tr("Error")};
    case Worst::Warning:
        return {WarningIcon, tr("Warning")};
    case Worst::Information:
        return {InformationIcon, tr("Note")};
    default:
        break;
    }
    if (!look.isActive)
        return {InactiveIcon, tr("Inactive")};
    return {OkIcon, tr("Valid")};
}

void DatacoreRowDelegate::paintText(QPainter& painter, const QRect& room, const QString& text,
                                    const QFont& font, const QColor& colour) const
{
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
}

void DatacoreRowDelegate::paintIcon(QPainter& painter, const QRect& cell, int left, IconId icon) const
{
    painter.drawPixmap(left, cell.top() + (cell.height() - kIconSize) / 2, m_icons[icon]);
}

QWidget* DatacoreRowDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                           const QModelIndex& index) const
{
    auto* const editor = new QLineEdit(index.data(Qt::EditRole).toString(), parent);
    editor->setFont(m_font);
    editor->setFrame(false);
    const auto colour = [this](ColourRole role) { return m_colours.colour(role).name(); };
    editor->setStyleSheet(
        QStringLiteral("QLineEdit { border: 2px solid %1; background: %2; color: %3; padding: 0 6px; "
                       "selection-background-color: %4; selection-color: %3; }")
            .arg(colour(ColourRole::Accent), colour(ColourRole::InstrumentBackground),
                 colour(ColourRole::Text), colour(ColourRole::Border)));
    editor->selectAll();
    return editor;
}

/// The value goes on changing while somebody types: the editor has had its text when it was made.
void DatacoreRowDelegate::setEditorData(QWidget*, const QModelIndex&) const
{
}

void DatacoreRowDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                               const QModelIndex&) const
{
    editor->setGeometry(option.rect.adjusted(0, 0, -kMargin + 2, 0));
}

/// Only Enter writes: a command must not go out because a finger went elsewhere.
bool DatacoreRowDelegate::eventFilter(QObject* object, QEvent* event)
{
    auto* const editor = qobject_cast<QWidget*>(object);
    if (editor && event->type() == QEvent::FocusOut) {
        emit closeEditor(editor, NoHint);
        return false;
    }
    return QStyledItemDelegate::eventFilter(object, event);
}
