#include "app/WindowStart.h"

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

// One application for all tests, on a pinned platform, with a folder of its own for what the program writes.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    const QTemporaryDir home(PULSELARK_BUILD "/window_tests_XXXXXX");
    const std::string folder = home.path().toStdString();
    for (const char* part : {"config", "Sessions"})
        std::filesystem::copy(std::filesystem::path(PULSELARK_BUILD) / part,
                              std::filesystem::path(folder) / part);
    for (const char* name : {"PULSELARK_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "HOME"})
        ::setenv(name, folder.c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("QT_SCALE_FACTOR", "1", 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::setenv("TZ", "UTC", 1);
    const QApplication application(argc, argv);
    pulselark::StartToolkit();
    return RUN_ALL_TESTS();
}
