#pragma once

#include <QStringList>

/// An element as a window hears of it, and what follows for its look. A value.
struct ElementState {
    /// From the best to the worst. Each has a look of its own.
    enum class Verdict { Valid, Inactive, Unknown, Warning, Error };

    QStringList values;
    QStringList reasons; ///< for being invalid, each behind "Error: ", "Warning: " or "Info: "
    bool active = true;

    /// The first value; empty when there is none.
    QString text() const { return values.value(0); }
    /// An element that has no value yet is Unknown, unless it says what is wrong with it.
    Verdict verdict() const;
    bool isUsable() const { return verdict() != Verdict::Unknown && verdict() != Verdict::Inactive; }
    /// The reasons for being invalid, one a line.
    QString toolTip() const;
};
