#pragma once

#include <QString>

#include <vector>

namespace orlo
{

/// What is typed into the console: the command, and the parameters that only an object-driven
/// model takes.
struct TypedCommand {
    QString command;
    QString parameters;

    bool operator==(const TypedCommand&) const = default;
};

/// The last commands of the session, recalled one by one from what is being typed.
class CommandHistory
{
public:
    /// A command that was sent. Recalling begins anew behind it; the same one twice in a row stands
    /// once.
    void Add(const TypedCommand& sent);

    /// Recalling begins anew, behind a command that was refused.
    void Restart() { place_ = sent_.size(); }

    /// The command before the one recalled last, or before `typed` when that is the newest; at the
    /// oldest it stays there. `typed` is what stands in the fields and is kept for when the
    /// operator comes back to it.
    TypedCommand Older(const TypedCommand& typed);
    /// The command behind it, at the end what was being typed.
    TypedCommand Newer(const TypedCommand& typed);

private:
    static constexpr std::size_t kMost = 50;

    std::vector<TypedCommand> sent_;
    /// Index of what was recalled last; sent_.size() = nothing, the operator types.
    std::size_t place_ = 0;
    TypedCommand draft_;
};

}  // namespace orlo
