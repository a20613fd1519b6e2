#pragma once

#include "GalleryAppearance.h"

#include <QCommandLineParser>

#include <memory>

class QGuiApplication;
class QQuickView;

namespace jotwell {

class DesktopLooks;
class KeyNames;

/// A program that shows a view in one of its states, or takes a picture of it: what `--screenshot
/// FILE`, `--dark`, `--high-contrast` and `--scale FACTOR` mean to all of them.
class Gallery {
public:
    /// `own` are the options of this gallery alone. Ends the process if it doesn't know one.
    Gallery(int& argc, char** argv, const QList<QCommandLineOption>& own = {});
    ~Gallery();
    Gallery(const Gallery&) = delete;
    Gallery& operator=(const Gallery&) = delete;

    /// Of an option; empty if it isn't given.
    [[nodiscard]] QString value(const char* option) const;
    [[nodiscard]] GalleryAppearance& appearance() { return m_appearance; }

    /// Runs until the picture is taken, once everything that moves has come to rest, or until the
    /// view is closed. Gives the exit status.
    [[nodiscard]] int run(QQuickView& view);

private:
    QCommandLineParser m_parser;
    std::unique_ptr<QGuiApplication> m_application;
    GalleryAppearance m_appearance;
    std::unique_ptr<KeyNames> m_keyNames;
    std::unique_ptr<DesktopLooks> m_looks;
};

} // namespace jotwell
