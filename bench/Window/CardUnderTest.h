#pragma once

#include "Platform/NativePlatform.h"
#include "Platform/WindowSystem.h"
#include "Views/FloatingWindow.h"
#include "Views/FloatingWindowView.h"

#include <QApplication>
#include <QTemporaryDir>

#include <memory>

namespace jotwell::bench {

/// The capture window with all that stands behind it, as the program has it, on a vault of its own:
/// 10,000 folders or fewer, 200 templates and some notes. The application is part of it. Main
/// thread.
class CardUnderTest {
public:
    static constexpr int templateCount = 200;
    static constexpr int folderCount = 10'000;
    static constexpr int resultCount = 50;

    CardUnderTest(int& argc, char** argv, int folders = folderCount);
    ~CardUnderTest();

    [[nodiscard]] FloatingWindow& window() { return *m_window; }
    [[nodiscard]] FloatingWindowView& view() { return *m_view; }

    void show();
    /// Shows it and waits until the text field has the keyboard.
    void takeKeys();
    /// Puts the text into the field as if the user had written it.
    void write(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Opens the list of all folders; the panel stays as it is.
    void openList();
    /// None if it isn't open.
    [[nodiscard]] qsizetype rowsInList() const;
    /// Opens the panel with 50 notes found by their text. The window must have been shown once.
    void openPanel();
    /// Takes text, list and panel away.
    void clear();

    /// Starts to build the index of the own vault.
    void startBuild();
    /// Builds the index of another vault, over and over until the end. The panel must have been
    /// open before, as its notes are found in the own vault.
    void keepBuilding(const QString& vault);

    /// What is typed at one of the lists and still fits all its rows.
    [[nodiscard]] static QChar typed(int key);
    [[nodiscard]] static QString nameOfTemplate(int number);
    [[nodiscard]] static QString nameOfFolder(int number);

private:
    struct Program {
        Program(int& argc, char** argv);

        QApplication application;
    };

    void makeVault(int folders);
    void findResults();
    [[nodiscard]] QString vault() const { return m_folder.filePath(QStringLiteral("vault")); }

    const QTemporaryDir m_folder;
    Program m_program;
    NativePlatform m_native;
    std::unique_ptr<WindowSystem> m_windowSystem;
    std::unique_ptr<FloatingWindowView> m_view;
    std::unique_ptr<FloatingWindow> m_window;
    NoteSearchResults m_results;
    std::unique_ptr<QObject> m_building; ///< as long as it goes on
};

/// Text of a note, with marks of Markdown and tags, and a line end behind it.
[[nodiscard]] QString noteText(int length);

} // namespace jotwell::bench
