#include "status/release_text.h"

#include "link/fields.h"

namespace orlo
{

// Characters 4 to 6 stand before 1 to 3 on purpose.
std::string ReleaseText(const std::function<std::string()>& last_build)
{
    std::string text = "Release: ";
    text += Field(last_build(), 4, 3);
    text += Field(last_build(), 1, 3);
    text += Field(last_build(), 7, 2);
    text += Field(last_build(), 9, 15);
    return text;
}

}  // namespace orlo
