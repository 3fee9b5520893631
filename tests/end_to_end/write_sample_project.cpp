// SPDX-License-Identifier: MIT
//
// write_sample_project FILE: writes the project that project_file_test.py expects.
#include "app/project_file.h"
#include "items/gx_screen.h"
#include "items/gx_still.h"
#include "platform/file.h"

using namespace wallgrid;

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const ScreenRef screen = GXScreen::initWithrow(2, 300, 40, 100000, Color::calibratedRGB(0.1, 1.0 / 3, 1, 0.5),
                                                   Color::whiteColor(), Color::deviceRGB(0, 0, 1), -1, true, false,
                                                   makeString(u"Wand \u00E4 \U0001F600"), true, -70000, 0);
    const StillRef still = GXStill::initWithimage(nullptr);
    still->setImageURL(std::make_shared<const Url>(Url::fromFilePath("/logos/a b.png")));
    still->setRectColor(screen->rectColor());
    return writeFileAtomically(argv[1], writeProject({1080, 1920, {screen, still, screen}})) ? 0 : 1;
}
