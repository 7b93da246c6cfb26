// Whether the desktop wishes for dark windows, by settings that its palette does not show.
#pragma once

namespace views {

bool settingsSayDark();

} // namespace views
