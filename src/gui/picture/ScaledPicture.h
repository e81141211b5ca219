#pragma once

#include "gui/picture/FeedPicture.h"

#include <QWidget>

/// One of the instrument's pictures, as large as its place allows. Shown a second time it may be a copy,
/// which costs no second reader.
class ScaledPicture : public QWidget {
    Q_OBJECT
public:
    /// @p index tells the pictures of an instrument apart, from 0.
    explicit ScaledPicture(int index, QWidget* parent = nullptr);

    int index() const { return m_index; }
    FeedPicture& picture() { return m_picture; }

public slots:
    /// Shows that picture in place of its own one; a null one ends it.
    void showCopy(const QImage& copy);

signals:
    /// What is shown by now. The picture is only copied while somebody wants it.
    void shown(const QImage& picture);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    const int m_index;
    FeedPicture m_picture;
    QImage m_copy;
};
