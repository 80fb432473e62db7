#pragma once

#include "simulated_line.h"

#include <optional>

namespace quellpad::site {

// How the installer last wired the simulated site behind a COM port: the camera addresses
// and the line settings its equipment listens at.
struct SiteSetup {
    Site::Wiring wiring;
    LineFormat format;
};

// Kept in the user's configuration ($XDG_CONFIG_HOME/Quellpad/Site.conf), never in
// Settings.dat. A port whose site was never rewired has no entry and gets the site as it
// comes; so does one whose entry no longer reads.
QString SiteSetupPath();
std::optional<SiteSetup> StoredSiteSetup(int portNumber);
void KeepSiteSetup(int portNumber, const SiteSetup& setup);

// Rewires the line's equipment (at rest) and sets what it listens at.
void ApplySiteSetup(SimulatedLine& line, const SiteSetup& setup);

} // namespace quellpad::site
