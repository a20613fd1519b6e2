#pragma once

#include "Platform/FolderPanel.h"

#include <QObject>
#include <QPointer>

#include <optional>
#include <utility>

namespace jotwell {

/// A panel at which the test is the user.
class FakeFolderPanel : public FolderPanel {
public:
    std::optional<FolderQuestion> question; ///< the last one, for as long as it is open

    void choose(const FolderQuestion& its, QWindow*, QObject* context,
                std::function<void(const QString&)> chosen) override
    {
        question = its;
        m_context = context;
        m_chosen = std::move(chosen);
    }

    /// It closes with the one who asked.
    [[nodiscard]] bool isOpen() const { return question && m_context; }

    void answer(const QString& path)
    {
        question.reset();
        if (const auto chosen = std::exchange(m_chosen, nullptr); m_context)
            chosen(path);
    }
    void cancel()
    {
        question.reset();
        m_chosen = nullptr;
    }

private:
    QPointer<QObject> m_context;
    std::function<void(const QString&)> m_chosen;
};

} // namespace jotwell
