#pragma once

#include <QString>

#include <optional>

/// Which instrument the user has chosen to look at. Presets are kept by instruments and go from one to
/// another, so this is kept apart from them, in a file beside the client's own.
class ConnectionSettings {
public:
    struct Choice {
        QString address;
        bool autoConnect = true;
    };

    /// @p presetFile: the file to stand beside.
    explicit ConnectionSettings(const QString& presetFile);

    /// Nothing when the user has chosen none, or when what is stored is no address.
    std::optional<Choice> load() const;
    void save(const Choice& choice) const;

private:
    const QString m_path;
};
