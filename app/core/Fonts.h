#pragma once

/// Gives the forms' font families metric-compatible stand-ins on systems that lack them, because the
/// fit of text into its box depends on metrics. Symbol is left alone: its own face shows Greek letters.
void substituteMissingFonts();
