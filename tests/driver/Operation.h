#pragma once

#include "Fakes/TaskRunner.h"
#include "driver/Answer.h"
#include "driver/JsonValues.h"

#include <QJsonObject>
#include <QStringView>

#include <array>
#include <functional>
#include <tuple>
#include <utility>

namespace jotwell {

// The one way from the JSON of a request to a call of production code, and from its outcome back.

using Operation = std::function<Answer(const QJsonObject& arguments)>;

template <typename T>
[[nodiscard]] Answer answerOf(const T& value)
{
    return toJson(value);
}

inline Answer answerOf(const QJsonValue& value)
{
    return value;
}

inline Answer answerOf(const Answer& answer)
{
    return answer;
}

template <typename T, typename Error>
[[nodiscard]] Answer answerOf(const Result<T, Error>& outcome)
{
    if (!outcome)
        return failureOf(outcome.error());
    if constexpr (std::is_void_v<T>)
        return QJsonValue();
    else
        return toJson(*outcome);
}

/// Runs the event loop until the task has ended.
template <typename T>
[[nodiscard]] Answer answerOf(QCoro::Task<T> task)
{
    if constexpr (std::is_void_v<T>) {
        finished(std::move(task));
        return QJsonValue();
    } else {
        return answerOf(finished(std::move(task)));
    }
}

/// An argument that is absent or null reads as an absent optional.
template <typename T>
struct ArgumentReader {
    static std::optional<T> read(const QJsonValue& json) { return fromJson<T>(json); }
};

template <typename T>
struct ArgumentReader<std::optional<T>> {
    static std::optional<std::optional<T>> read(const QJsonValue& json)
    {
        if (json.isUndefined() || json.isNull())
            return std::optional<T>();
        if (auto value = fromJson<T>(json))
            return value;
        return std::nullopt;
    }
};

/// As many names as a function has parameters.
template <std::size_t Count>
struct ArgumentNames : std::array<QStringView, Count> {
    template <typename... Name>
    requires(sizeof...(Name) == Count) ArgumentNames(Name... name)
        : std::array<QStringView, Count>{name...}
    {
    }
};

template <typename Function>
struct SignatureOf : SignatureOf<decltype(&Function::operator())> {
};

template <typename Class, typename Outcome, typename... Parameters>
struct SignatureOf<Outcome (Class::*)(Parameters...) const> {
    static constexpr std::size_t count = sizeof...(Parameters);
    using Names = ArgumentNames<count>;

    template <typename Function>
    static Answer call(const Function& function, const Names& names, const QJsonObject& arguments)
    {
        return call(function, names, arguments, std::index_sequence_for<Parameters...>());
    }

private:
    template <typename Function, std::size_t... Index>
    static Answer call(const Function& function, const Names& names, const QJsonObject& arguments,
                       std::index_sequence<Index...>)
    {
        const std::tuple values{
            ArgumentReader<std::decay_t<Parameters>>::read(arguments.value(names[Index]))...};
        const std::array<bool, count> isRead{std::get<Index>(values).has_value()...};
        for (std::size_t each = 0; each < count; ++each) {
            if (!isRead[each])
                return badRequest(QStringLiteral("\"%1\" is missing or mistyped").arg(names[each]));
        }
        if constexpr (std::is_void_v<Outcome>) {
            function(*std::get<Index>(values)...);
            return QJsonValue();
        } else {
            return answerOf(function(*std::get<Index>(values)...));
        }
    }
};

/// An op that calls `function` with the arguments of these names, each read as the type of the
/// parameter in its place. One that can't be read makes the request a bad one.
template <typename Function>
[[nodiscard]] Operation operation(typename SignatureOf<Function>::Names names, Function function)
{
    return [names, function](const QJsonObject& arguments) {
        return SignatureOf<Function>::call(function, names, arguments);
    };
}

} // namespace jotwell
