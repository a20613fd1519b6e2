#pragma once

namespace jotwell {

class CommandService;
class ObsidianService;
class Scheduler;
class SettingsService;
class TagIndexService;
class TemplateSyncService;

/// What the input language works with. All of it outlives whoever is given it.
struct InputServices {
    CommandService& commands;
    SettingsService& settings;
    ObsidianService& notes;
    TagIndexService& tags;
    TemplateSyncService& templates;
    Scheduler& scheduler;

    /// The services of the program.
    [[nodiscard]] static InputServices shared(Scheduler& scheduler);
};

} // namespace jotwell
