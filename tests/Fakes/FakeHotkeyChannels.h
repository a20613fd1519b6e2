#pragma once

#include "Platform/HotkeyChannels.h"

#include <optional>
#include <utility>

namespace jotwell {

/// A desktop whose user and whose keys are the test. One channel of each kind at a time.
class FakeHotkeyChannels : public HotkeyChannels {
public:
    bool trusted = false;
    bool tapAvailable = true;
    bool monitorAvailable = true;
    int prompts = 0;                ///< calls of `askForTrust`
    std::optional<Hotkey> askedFor; ///< by the last of these
    int tapsCreated = 0;            ///< that were asked for, also in vain
    std::optional<Hotkey> tapped;   ///< what the running tap listens for
    std::optional<Hotkey> watched;  ///< what the running monitor listens for

    /// Whether the event reached the program with the keyboard.
    bool tapEvent(const KeyEvent& event) { return !m_callback || m_callback(event); }
    void monitorEvent(const KeyEvent& event)
    {
        if (m_handler)
            m_handler(event);
    }

    [[nodiscard]] bool isTrusted() const override { return trusted; }
    void askForTrust(const Hotkey& hotkey) override
    {
        ++prompts;
        askedFor = hotkey;
    }
    [[nodiscard]] std::unique_ptr<HotkeyChannel> createEventTap(const Hotkey& hotkey,
                                                                TapCallback callback) override
    {
        ++tapsCreated;
        if (!tapAvailable)
            return nullptr;
        tapped = hotkey;
        m_callback = std::move(callback);
        return channel([this] {
            tapped.reset();
            m_callback = nullptr;
        });
    }
    [[nodiscard]] std::unique_ptr<HotkeyChannel> addGlobalMonitor(const Hotkey& hotkey,
                                                                  MonitorHandler handler) override
    {
        if (!monitorAvailable)
            return nullptr;
        watched = hotkey;
        m_handler = std::move(handler);
        return channel([this] {
            watched.reset();
            m_handler = nullptr;
        });
    }

private:
    class Channel : public HotkeyChannel {
    public:
        explicit Channel(std::function<void()> end) : m_end(std::move(end)) {}
        ~Channel() override { m_end(); }
        Channel(const Channel&) = delete;
        Channel& operator=(const Channel&) = delete;

    private:
        std::function<void()> m_end;
    };

    static std::unique_ptr<HotkeyChannel> channel(std::function<void()> end)
    {
        return std::make_unique<Channel>(std::move(end));
    }

    TapCallback m_callback;
    MonitorHandler m_handler;
};

} // namespace jotwell
