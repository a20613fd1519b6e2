#pragma once

#include "Platform/FolderPanel.h"

#include <optional>
#include <utility>

namespace jotwell {

/// A panel at which the test is the user.
class FakeFolderPanel : public FolderPanel {
public:
    std::optional<FolderQuestion> question; ///< the last one, for as long as it is open

    void choose(const FolderQuestion& its, QWindow*, QObject*,
                std::function<void(const QString&)> chosen) override
    {
        question = its;
        m_chosen = std::move(chosen);
    }

    void answer(const QString& path)
    {
        question.reset();
        std::exchange(m_chosen, nullptr)(path);
    }
    void cancel()
    {
        question.reset();
        m_chosen = nullptr;
    }

private:
    std::function<void(const QString&)> m_chosen;
};

} // namespace jotwell
