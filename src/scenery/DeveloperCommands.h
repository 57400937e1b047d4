#pragma once

#include <QString>

#include <optional>

namespace pulselark {

/// What the command line asks for besides the window.
struct PictureOptions {
    QString File; ///< `--picture FILE.png`
    int Scenery = 0;
    double At = 0;
    double Value = 50;
    int Level = 2;
    int Width = 1280, Height = 800;
    bool Tidal = false;
    bool Menu = false;
};

/// Draws one picture without a display. Level 0 and 1 show the pacer, `At` seconds after it began; the other
/// levels the scenery after `At` seconds of scrolling. Returns the exit code.
int RunPictureOfScenery(const PictureOptions& options);

/// Draws each scenery for `seconds` at 30 pictures a second, as fast as it can, and prints what a picture
/// costs beside a bare copy of one as large. Returns the exit code.
int RunSceneryBench(double seconds, int width, int height);

} // namespace pulselark
