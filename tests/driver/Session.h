#pragma once

#include "Fakes/FakeDesktop.h"
#include "driver/DriverPlatform.h"
#include "driver/EffectRecorder.h"
#include "driver/InputRecorder.h"
#include "driver/PublicationRecorder.h"

#include <memory>

namespace jotwell {

class AppDelegate;
class CommandService;
class CommandTemplateState;
class FloatingWindowView;
class GlobalHotkeyManager;
class ObsidianService;
class TagIndexService;
class ToastManager;

/// One life of the shared services on a home folder. Services that have effects to record are
/// reached through here, so that the recorder listens before the first effect.
class Session {
public:
    explicit Session(const QString& home);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] DriverPlatform& platform() { return m_platform; }
    [[nodiscard]] EffectRecorder& effects() { return m_effects; }

    ToastManager& toasts();
    TagIndexService& index();
    /// Ends what the index is at, if there is one.
    void stopIndex();
    ObsidianService& notes();
    CommandService& commands();
    GlobalHotkeyManager& hotkey();
    /// The current input state; makes one if there is none.
    CommandTemplateState& input();
    /// Makes a fresh one the current one.
    void makeInput();
    /// The current view of the capture window; makes one if there is none.
    FloatingWindowView& window();
    /// Makes a fresh one the current one, and its input state the current state.
    void makeWindow();
    /// The application itself, which hasn't been launched: it has neither a window nor a hotkey.
    AppDelegate& application();
    /// The desktop that it is made for.
    [[nodiscard]] FakeDesktop& desktop() { return m_desktop; }
    /// What was assigned to the input state's fields since the last call.
    [[nodiscard]] QJsonArray takeInputChanges() { return m_inputRecorder.take(); }
    /// What the index published since the last call.
    [[nodiscard]] QJsonArray takePublications() { return m_publications.take(); }
    /// Whether lists of notes have a listener: the recorder.
    void setListening(bool isListening);

private:
    void use(CommandTemplateState& input);
    void recordWindow();
    void recordApplication();

    EffectRecorder m_effects;
    DriverPlatform m_platform;
    PublicationRecorder m_publications;
    InputRecorder m_inputRecorder{m_effects};
    FakeDesktop m_desktop;
    std::unique_ptr<AppDelegate> m_application;
    std::unique_ptr<CommandTemplateState> m_ownInput;
    std::unique_ptr<FloatingWindowView> m_window;
    CommandTemplateState* m_input = nullptr; ///< our own or the window's
    bool m_recordsIndex = false;
    bool m_recordsToasts = false;
    bool m_recordsCommands = false;
    bool m_recordsHotkey = false;
};

} // namespace jotwell
