#include "Support/BreakKinds.h"

#include <unicode/uchar.h>

#include <memory>

namespace jotwell {

namespace {

// Whether consonants may go on in the same character behind the mark.
bool linksConsonants(UChar32 code)
{
    switch (u_getIntPropertyValue(code, UCHAR_INDIC_SYLLABIC_CATEGORY)) {
    case U_INSC_INVISIBLE_STACKER:
    case U_INSC_PURE_KILLER:
    case U_INSC_VIRAMA:
        return true;
    default:
        return false;
    }
}

} // namespace

BreakKinds& BreakKinds::shared()
{
    static BreakKinds kinds;
    return kinds;
}

BreakKind BreakKinds::ofCodePoint(char32_t code)
{
    const auto character = static_cast<UChar32>(code);
    switch (u_getIntPropertyValue(character, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_OTHER:
    case U_GCB_LV: // only jamo join syllables
    case U_GCB_LVT:
        return BreakKind::letter;
    case U_GCB_CONTROL:
    case U_GCB_CR:
    case U_GCB_LF:
        return BreakKind::control;
    case U_GCB_EXTEND:
    case U_GCB_SPACING_MARK:
        return linksConsonants(character) ? BreakKind::special : BreakKind::mark;
    default:
        return BreakKind::special;
    }
}

const BreakKinds::Page& BreakKinds::newPage(unsigned index)
{
    auto made = std::make_unique<Page>();
    for (unsigned place = 0; place < made->size(); ++place) {
        const char32_t code = index << 8 | place;
        (*made)[place] = QChar::isSurrogate(code) ? BreakKind::surrogate : ofCodePoint(code);
    }
    const Page* page = nullptr;
    // Another thread may have been faster.
    if (m_pages[index].compare_exchange_strong(page, made.get(), std::memory_order_acq_rel))
        page = made.release();
    return *page;
}

} // namespace jotwell
