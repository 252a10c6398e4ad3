#pragma once

namespace jet
{

enum class OpenMode { ReadOnly, ReadWrite };

}  // namespace jet
