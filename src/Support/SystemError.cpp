#include "Support/SystemError.h"

#include <cerrno>
#include <system_error>

namespace jotwell {

SystemError SystemError::last()
{
    return SystemError{errno};
}

QString SystemError::description() const
{
    return QString::fromLocal8Bit(std::generic_category().message(code));
}

} // namespace jotwell
