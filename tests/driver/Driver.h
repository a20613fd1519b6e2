#pragma once

#include "Platform/DefaultsStore.h"
#include "driver/Operations.h"

#include <cstdio>
#include <istream>

namespace jotwell {

/// Reads requests, one a line, and answers each before it looks at the next. Main thread, whose
/// event loop runs only while an op has it run.
class Driver {
public:
    explicit Driver(Session& session);
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    /// Works until the end of the input; false if the answers find no taker any more.
    [[nodiscard]] bool run(std::istream& input, std::FILE* output);

private:
    [[nodiscard]] QJsonValue info(Session& session) const;
    [[nodiscard]] QByteArray answerTo(const QByteArray& line) const;

    DefaultsStore& m_defaults;
    Operations m_operations;
};

} // namespace jotwell
