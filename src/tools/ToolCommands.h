#pragma once

struct ToolContext;

/// The commands of wz_datacore, each in a source of its own. They run the event loop where they need it and
/// return the program's exit code: 0 done, 1 failed, with the reason on standard error. Arguments that mean
/// nothing end the program with 2.
namespace ToolCommands {

int list(const ToolContext& context);
int tree(const ToolContext& context);
int get(const ToolContext& context);
int set(const ToolContext& context);
int watch(const ToolContext& context);
int wait(const ToolContext& context);
int exportSettings(const ToolContext& context);
int importSettings(const ToolContext& context);
int meters(const ToolContext& context);
int events(const ToolContext& context);
int decodeVpid(const ToolContext& context);
int decodeChannelStatus(const ToolContext& context);
int listStandards(const ToolContext& context);

} // namespace ToolCommands
