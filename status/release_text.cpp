#include "status/release_text.h"

#include "link/fields.h"

namespace orlo
{

// Characters 4 to 6 stand before 1 to 3 on purpose.
std::string ReleaseText(std::string_view last_build)
{
    return "Release: " + Field(last_build, 4, 3) + Field(last_build, 1, 3) +
           Field(last_build, 7, 2) + Field(last_build, 9, 15);
}

}  // namespace orlo
