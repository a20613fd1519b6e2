#include "Services/Index/FileMetadata.h"

namespace jotwell {

QByteArrayView FileMetadata::fileName() const
{
    return fileNameOf(path);
}

QByteArrayView FileMetadata::title() const
{
    return titleOf(path);
}

TagSet FileMetadata::allTags() const
{
    return unitedTags(frontmatterTags, contentTags);
}

QByteArrayView fileNameOf(QByteArrayView path)
{
    return path.sliced(path.lastIndexOf('/') + 1);
}

QByteArrayView titleOf(QByteArrayView path)
{
    const QByteArrayView name = fileNameOf(path);
    const qsizetype dot = name.lastIndexOf('.');
    return dot > 0 ? name.first(dot) : name;
}

} // namespace jotwell
