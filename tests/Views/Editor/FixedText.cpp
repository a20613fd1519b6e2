#include "Views/Editor/FixedText.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextOption>

#include <cmath>

namespace jotwell {

FixedText::FixedText()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(20);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    QTextOption option = document.defaultTextOption();
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(option);
}

void FixedText::show(int paragraph, const QList<QTextLayout::FormatRange>& formats)
{
    document.findBlockByNumber(paragraph).layout()->setFormats(formats);
    layOut(paragraph);
}

void FixedText::layOut(int paragraph)
{
    const QTextBlock block = document.findBlockByNumber(paragraph);
    document.markContentsDirty(block.position(), block.length());
}

qreal FixedText::advance() const
{
    return QFontMetricsF(document.defaultFont()).horizontalAdvance(u'x');
}

qreal FixedText::lineHeight() const
{
    return std::ceil(QFontMetricsF(document.defaultFont()).height());
}

} // namespace jotwell
