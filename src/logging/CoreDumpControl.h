#pragma once

/// Core files for the support staff: switched on by a flag file, since they are large and stay on the disk.
class CoreDumpControl {
public:
    /// Whether "/home/debug_feature_flags/ENABLE_CORE_DUMPS" exists; what it contains does not matter.
    [[nodiscard]] static bool isCoreDumpFeatureFlagEnabled();

    /// Lifts the soft and the hard limit of the core file size. The outcome goes to the log or, before the
    /// log has started, to standard error.
    static void enableCoreDumps();
};
