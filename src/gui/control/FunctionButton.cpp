#include "gui/control/FunctionButton.h"

#include "gui/style/Fonts.h"
#include "gui/style/WzCustomStyle.h"

#include <QPainter>
#include <QTimer>

namespace {

constexpr int kFlashMs = 120;
constexpr int kPadding = 8;
constexpr int kIconSize = 24;
constexpr int kIconGap = 8;
constexpr qreal kRadius = 3.5;
constexpr int kSelectionBar = 4;
constexpr int kRing = 2;
constexpr QSize kMark(8, 4);
constexpr int kMarkPitch = 14;
// Distances from the upper edge of the face.
constexpr int kSuperscriptTop = 8;
constexpr int kLabelTopBelowSuperscript = 30;
constexpr int kMarkTop = 52;
constexpr int kLabelBottomAboveMarks = 50;

int pixelsOf(int points)
{
    return qRound(points * 4 / 3.0);
}

/// The text in one line, or in two where it is too long and may be broken.
QStringList linesOf(const QString& text, const QFontMetrics& metrics, int room, bool mayBreak)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (!mayBreak || words.size() < 2 || metrics.horizontalAdvance(text) <= room)
        return {metrics.elidedText(text, Qt::ElideRight, room)};
    int inFirst = words.size() - 1;
    while (inFirst > 1
           && metrics.horizontalAdvance(QStringList(words.mid(0, inFirst)).join(QLatin1Char(' '))) > room)
        --inFirst;
    const auto line = [&](int from, int count) {
        return metrics.elidedText(QStringList(words.mid(from, count)).join(QLatin1Char(' ')), Qt::ElideRight,
                                  room);
    };
    return {line(0, inFirst), line(inFirst, -1)};
}

} // namespace

FunctionButton::FunctionButton(const WzCustomStyle& style, QWidget* parent)
    : QAbstractButton(parent)
    , m_style(style)
    , m_superscriptFont(Fonts::ofPixels(Fonts::kLabelPixels))
{
    // A control that is edited by the buttons keeps the focus.
    setFocusPolicy(Qt::NoFocus);
    setIconSize({kIconSize, kIconSize});
    setPointSize(style.functionButtonPointSize());
}

void FunctionButton::setFace(const QString& label, const QIcon& newIcon)
{
    if (label == m_label && newIcon.cacheKey() == icon().cacheKey())
        return;
    m_label = label;
    setIcon(newIcon);
    m_tinted = {};
    setAccessibleName(label);
    layOutLabel();
}

void FunctionButton::setSuperscript(const QString& text)
{
    if (text == m_superscript)
        return;
    m_superscript = text;
    layOutLabel();
}

void FunctionButton::setWordWrap(bool wrap)
{
    if (wrap == m_wordWrap)
        return;
    m_wordWrap = wrap;
    layOutLabel();
}

void FunctionButton::setPointSize(int points)
{
    if (points == m_pointSize || points <= 0)
        return;
    m_pointSize = points;
    m_font = Fonts::ofPixels(pixelsOf(points));
    layOutLabel();
}

void FunctionButton::setSelected(bool selected)
{
    if (selected == m_selected)
        return;
    m_selected = selected;
    update();
}

void FunctionButton::setMarks(int count, bool keepRoom)
{
    if (count == m_marks && keepRoom == m_keepRoom)
        return;
    m_marks = count;
    m_keepRoom = keepRoom;
    update();
}

void FunctionButton::flash()
{
    if (isBlank() || !isEnabled())
        return;
    setDown(true);
    QTimer::singleShot(kFlashMs, this, [this] { setDown(false); });
}

QRect FunctionButton::face() const
{
    return rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

bool FunctionButton::hitButton(const QPoint& position) const
{
    // Up to the edge of the screen, where a finger lands on the frame around it.
    const QRect target = face();
    return !isBlank() && position.x() >= target.left() && position.x() <= target.right()
        && rect().contains(position);
}

void FunctionButton::layOutLabel()
{
    const QFontMetrics metrics(m_font);
    const int room = face().width() - 2 * kPadding - (icon().isNull() ? 0 : iconSize().width() + kIconGap);
    // Below a superscript there is room for one line.
    m_lines = m_label.isEmpty() ? QStringList()
                                : linesOf(m_label, metrics, room, m_wordWrap && m_superscript.isEmpty());
    m_labelWidth = 0;
    for (const QString& line : std::as_const(m_lines))
        m_labelWidth = qMax(m_labelWidth, metrics.horizontalAdvance(line));
    update();
}

void FunctionButton::resizeEvent(QResizeEvent*)
{
    layOutLabel();
}

const QPixmap& FunctionButton::tintedIcon(const QColor& colour)
{
    if (m_tinted.isNull() || m_tint != colour) {
        m_tint = colour;
        m_tinted = icon().pixmap(window()->windowHandle(), iconSize());
        QPainter painter(&m_tinted);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(m_tinted.rect(), colour);
    }
    return m_tinted;
}

void FunctionButton::paintEvent(QPaintEvent*)
{
    if (isBlank())
        return;
    QPainter painter(this);
    paintFace(painter);
    const ColourRole plain = isEnabled() ? ColourRole::Text : ColourRole::DisabledText;
    const bool isLit = m_selected && isEnabled() && m_style.theme() == WzPalette::Theme::Dark;
    paintLabel(painter, isLit ? QColor(Qt::white) : m_style.colour(plain));
    paintMarks(painter, m_style.colour(plain));
}

void FunctionButton::paintFace(QPainter& painter) const
{
    const ColourRole fill = !isEnabled() ? ColourRole::DisabledFill
        : isDown()                       ? ColourRole::Pressed
        : m_selected                     ? ColourRole::Selected
                                         : ColourRole::Raised;
    const QRect place = face();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_style.colour(isEnabled() ? ColourRole::Border : ColourRole::Frame));
    painter.setBrush(m_style.colour(fill));
    painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    if (hasFocus()) {
        painter.setPen(QPen(m_style.colour(ColourRole::Accent), kRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (m_selected)
        painter.fillRect(place.left() + 1, place.bottom() - kSelectionBar, place.width() - 2, kSelectionBar,
                         m_style.colour(isEnabled() ? ColourRole::Accent : ColourRole::DisabledText));
}

void FunctionButton::paintLabel(QPainter& painter, const QColor& colour)
{
    const QRect place = face();
    const QFontMetrics metrics(m_font);
    const int high = static_cast<int>(m_lines.size()) * metrics.height();
    int top = place.top() + (place.height() - high) / 2;
    if (!m_superscript.isEmpty()) {
        top = place.top() + kLabelTopBelowSuperscript;
        painter.setFont(m_superscriptFont);
        const ColourRole role = !isEnabled() ? ColourRole::DisabledText
            : m_selected                     ? ColourRole::Accent
                                             : ColourRole::SecondaryText;
        painter.setPen(m_style.colour(role));
        const QRect room = place.adjusted(kPadding, kSuperscriptTop, -kPadding, 0);
        painter.drawText(
            room, Qt::AlignHCenter | Qt::AlignTop,
            QFontMetrics(m_superscriptFont).elidedText(m_superscript, Qt::ElideRight, room.width()));
    }
    if (m_keepRoom)
        top = qMin(top, place.top() + kLabelBottomAboveMarks - high);
    const bool hasIcon = !icon().isNull();
    const int iconWidth = hasIcon ? iconSize().width() + (m_lines.isEmpty() ? 0 : kIconGap) : 0;
    int left = place.left() + (place.width() - iconWidth - m_labelWidth) / 2;
    if (hasIcon) {
        const int middle = m_lines.isEmpty() ? place.center().y() + 1 : top + high / 2;
        painter.drawPixmap(left, middle - iconSize().height() / 2, tintedIcon(colour));
        left += iconWidth;
    }
    painter.setFont(m_font);
    painter.setPen(colour);
    for (const QString& line : std::as_const(m_lines)) {
        painter.drawText(QRect(left, top, m_labelWidth, metrics.height()),
                         hasIcon ? Qt::AlignLeft : Qt::AlignHCenter, line);
        top += metrics.height();
    }
}

void FunctionButton::paintMarks(QPainter& painter, const QColor& colour) const
{
    const QRect place = face();
    const int mostMarks = (place.width() - 2 * kPadding + kMarkPitch - kMark.width()) / kMarkPitch;
    const int count = qBound(0, m_marks, mostMarks);
    const int wide = count * kMarkPitch - (kMarkPitch - kMark.width());
    const int left = place.left() + (place.width() - wide) / 2;
    for (int i = 0; i < count; ++i)
        painter.fillRect(QRect(QPoint(left + i * kMarkPitch, place.top() + kMarkTop), kMark), colour);
}
