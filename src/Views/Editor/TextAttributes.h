#pragma once

#include "Support/TextUnits.h"

namespace jotwell {

enum class FontFamily { system, monospaced };
enum class FontWeight { regular, medium, bold };
enum class TextColor { text, systemBlue, systemGreen, black };

struct FontStyle {
    FontFamily family = FontFamily::system;
    int size = 14; ///< pixels
    FontWeight weight = FontWeight::regular;
    bool italic = false;

    bool operator==(const FontStyle&) const = default;
};

/// How a stretch of the editor's text looks; by default like plain text.
struct TextAttributes {
    FontStyle font;
    TextColor color = TextColor::text;
    bool isExpanded = false; ///< drawn 5 % wider
    bool isUnderlined = false;
    bool isStruckThrough = false;

    bool operator==(const TextAttributes&) const = default;
};

struct AttributeRun {
    TextRange range;
    TextAttributes attributes;

    bool operator==(const AttributeRun&) const = default;
};

} // namespace jotwell
