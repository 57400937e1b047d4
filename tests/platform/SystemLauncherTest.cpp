#include "platform/system/SystemLauncher.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

namespace pulselark {
namespace {

class Launcher : public testing::Test {
protected:
    Launcher() : path_(PathNow()) { ::setenv("PATH", (Folder.Name() + ":" + path_).c_str(), 1); }
    ~Launcher() override { ::setenv("PATH", path_.c_str(), 1); }

    static std::string PathNow() {
        const char* path = std::getenv("PATH");
        return path != nullptr ? path : "/usr/bin:/bin";
    }
    void MakeFile(const std::string& name, const std::string& text, mode_t mode) const {
        const std::string path = Folder.Name() + "/" + name;
        std::ofstream(path) << text;
        ::chmod(path.c_str(), mode);
    }
    // What a program has written, once its last line is there.
    std::string WaitFor(const std::string& name) const {
        std::string text;
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (text.find("end\n") == std::string::npos && std::chrono::steady_clock::now() < end) {
            std::ifstream file(Folder.Name() + "/" + name);
            text.assign(std::istreambuf_iterator<char>(file), {});
            std::this_thread::yield();
        }
        return text;
    }

    TemporaryFolder Folder;
    SystemLauncher Programs;

private:
    std::string path_;
};

TEST_F(Launcher, AProgramIsStartedByItsPlainNameAndLeftAlone) {
    MakeFile("stonegarden",
             "#!/bin/sh\n"
             "read -r id name state parent group session rest < /proc/$$/stat\n"
             "{ echo \"${0##*/}\"; echo $#; echo \"$2\"; pwd; echo $session; echo end; } >"
             "\"${0%/*}/told\"\n",
             0755);
    EXPECT_GT(Programs.Execute({"StoneGarden.EXE", "open", "-a \"b c\"", Folder.Name(), 0}), 32);
    const std::string told = WaitFor("told");
    EXPECT_TRUE(told.starts_with("stonegarden\n2\nb c\n" + Folder.Name() + "\n")) << told;
    EXPECT_EQ(told.find("\n" + std::to_string(::getsid(0)) + "\nend"), std::string::npos) << told;
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1); // no child is left to be gathered
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(Launcher, WhyAProgramIsNotStartedIsTold) {
    MakeFile("closed", "#!/bin/sh\n", 0644);
    MakeFile("empty", "", 0755);
    MakeFile("good", "#!/bin/sh\n", 0755);
    EXPECT_EQ(Programs.Execute({"Missing.exe", "open", "", "", 1}), 2);
    EXPECT_EQ(Programs.Execute({"Closed.exe", "open", "", "", 1}), 5);
    EXPECT_EQ(Programs.Execute({"Empty.exe", "open", "", "", 1}), 11);
    EXPECT_EQ(Programs.Execute({"Good.exe", "open", "", Folder.Name() + "/none", 1}), 3);
    EXPECT_EQ(Programs.Execute({"page.html", "open", "", "", 1}), 31);
    EXPECT_GT(Programs.Execute({"Good.exe", "open", "", "", 1}), 32);
}

} // namespace
} // namespace pulselark
