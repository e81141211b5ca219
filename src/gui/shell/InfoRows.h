#pragma once

#include <QWidget>

class QGridLayout;
class QLabel;

/// Rows of a label and what it stands for, to read. The text is never taken for rich text: much of it comes
/// from the instrument.
class InfoRows : public QWidget {
    Q_OBJECT
public:
    explicit InfoRows(QWidget* parent = nullptr);

    /// The label with the value, which may be changed.
    QLabel* addRow(const QString& label, const QString& value = {});
    void clear();

private:
    QGridLayout* m_grid;
};
