#pragma once

#include "link/protocol_component.h"

#include <string_view>

namespace orlo::simulator
{

/// One object of the class, nullptr when there is none of that name. A TelegramComunication brings
/// a line of its own over the four `devices`; the other classes work over the line of the
/// TelegramComunication that was made last.
component::Object* CreateObject(std::string_view class_name, const char* const* devices);

}  // namespace orlo::simulator
