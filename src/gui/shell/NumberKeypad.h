#pragma once

#include "gui/control/NumberEntry.h"
#include "gui/shell/ShellPanel.h"

class EntryLine;
class QGridLayout;

/// Takes a number by keys on the screen, by a keyboard, or by knob and OK, which go over the keys. What
/// cannot be chosen is said while it is typed, and nothing changes until "Set".
class NumberKeypad : public ShellPanel {
    Q_OBJECT
public:
    NumberKeypad(MainWindowBase& window, NumberEntry number);

    EntryLine& entry() const { return *m_entry; }

signals:
    void chosen(double number);

protected:
    TriggerList functionTriggers() override;

private:
    void setupEntry();
    void setupKeys();
    void setupFoot();
    QPushButton* addKey(QGridLayout& grid, int row, int column, const QString& text);
    void addCharacter(QGridLayout& grid, int row, int column, QChar character);
    void addPrefix(QGridLayout& grid, int row, QChar prefix);
    void type(const QString& character);
    void step(int steps);
    void showText(const QString& text);
    void check();
    void accept();

    const NumberEntry m_number;
    EntryLine* const m_entry;
    QLabel* m_range;
    QPushButton* m_set = nullptr;
    std::vector<QPushButton*> m_limits; ///< least, greatest, one step down, one up
    std::optional<double> m_read;
    bool m_isUntouched = true; ///< the first key begins another number
};
