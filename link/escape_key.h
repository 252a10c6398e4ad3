#pragma once

namespace orlo
{

/// What has happened to the Escape key, the program being asked rather than told.
struct EscapeKeyState {
    bool pressed_since_last_query = false;
    bool held_now = false;
};

class EscapeKey
{
public:
    virtual ~EscapeKey() = default;

    /// The state since the query before. Querying forgets a press whose key is up again; one that
    /// is looked at while the key is down counts when it comes up, unless it was held.
    virtual EscapeKeyState Query() = 0;
    /// Whatever was pressed until now counts no more.
    virtual void Forget() = 0;
};

}  // namespace orlo
