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

    /// The state since the query before; querying forgets the press.
    virtual EscapeKeyState Query() = 0;
};

}  // namespace orlo
