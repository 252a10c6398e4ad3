#include "console/command_history.h"

namespace orlo
{

void CommandHistory::Add(const TypedCommand& sent)
{
    if (sent_.empty() || sent_.back() != sent) sent_.push_back(sent);
    if (sent_.size() > kMost) sent_.erase(sent_.begin());
    place_ = sent_.size();
}

TypedCommand CommandHistory::Older(const TypedCommand& typed)
{
    if (place_ == sent_.size()) {
        draft_ = typed;
        // The command that was sent last stands in the fields still.
        if (place_ > 1 && sent_.back() == typed) --place_;
    }
    if (place_ > 0) --place_;
    return sent_.empty() ? typed : sent_[place_];
}

TypedCommand CommandHistory::Newer(const TypedCommand& typed)
{
    if (place_ == sent_.size()) return typed;
    ++place_;
    return place_ == sent_.size() ? draft_ : sent_[place_];
}

}  // namespace orlo
