#pragma once

#include "app/WindowStart.h"
#include "persistence/OpenSession.h"
#include "platform/ProgramFolder.h"
#include "session/StartUp.h"
#include "support/SessionTest.h"
#include "workspace/WindowPlatform.h"
#include "workspace/frmMain.h"

#include <memory>

namespace pulselark {

/// The program as it has just started, with its window on request.
class WindowTest : public testing::Test {
protected:
    WindowTest() {
        PutEverythingBack();
        Outside = std::make_unique<WindowPlatform>();
        StartCore(false);
        FinishStartUp();
    }

    void OpenWindow(int width, int height) {
        Main = std::make_unique<frmMain>(*Outside);
        Main->resize(width, height);
        Main->show();
        Main->Mirror();
    }
    static std::string Demo() { return ProgramFolder() + "/Sessions/demo.hti"; }

    std::unique_ptr<WindowPlatform> Outside;
    std::unique_ptr<frmMain> Main;
};

} // namespace pulselark
