#pragma once

class QFont;

namespace orlo
{

/// The desktop's fixed font in the size of `font`, for what stands in columns.
QFont FixedFont(const QFont& font);

}  // namespace orlo
