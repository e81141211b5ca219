#pragma once

#include <QStringList>

/// In which order the user wants to see presets: the rules of it, apart from files. A value.
///
/// Names that are not there just now keep their place, since they may be on another instrument, or come back.
class PresetOrder {
public:
    /// Of names kept; far above what an instrument holds.
    static constexpr int kMostNames = 20000;

    const QStringList& names() const { return m_names; }
    /// Repeated names are left out, and what is beyond the limit.
    void setNames(const QStringList& names);

    /// @p names in this order; those without a place follow as they are.
    QStringList arranged(const QStringList& names) const;
    /// The user has put those that are shown into that order.
    void rearrange(const QStringList& shown);
    /// @p newName gets its place behind @p name, which keeps its own.
    void insertBehind(const QString& name, const QString& newName);
    void remove(const QString& name) { m_names.removeOne(name); }

private:
    QStringList m_names;
};
