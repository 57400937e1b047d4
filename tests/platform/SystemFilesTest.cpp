#include "platform/system/SystemFiles.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pulselark {
namespace {

namespace fs = std::filesystem;

class Disk : public testing::Test {
protected:
    Disk() {
        std::string name = (fs::temp_directory_path() / "pulselark-test-XXXXXX").string();
        Folder = ::mkdtemp(name.data());
    }
    ~Disk() override { fs::remove_all(Folder); }

    std::string At(const std::string& name) const { return (Folder / name).string(); }
    std::string Content(const std::string& name) {
        std::string bytes;
        EXPECT_EQ(Real.ReadWhole(At(name), bytes), 0) << name;
        return bytes;
    }
    static unsigned RightsOf(const std::string& name) {
        struct stat status {};
        ::stat(name.c_str(), &status);
        return status.st_mode & 07777U;
    }
    long Entries() const { return std::distance(fs::directory_iterator(Folder), fs::directory_iterator()); }

    fs::path Folder;
    SystemFiles Real;
};

TEST_F(Disk, BytesComeBackAndNothingElseIsLeft) {
    std::string bytes(300000, 'x');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7);
    EXPECT_EQ(Real.ReplaceWhole(At("ünd ♥.hti"), bytes), 0);
    EXPECT_TRUE(Content("ünd ♥.hti") == bytes);
    EXPECT_EQ(Real.ReplaceWhole(At("ünd ♥.hti"), ""), 0);
    EXPECT_EQ(Content("ünd ♥.hti"), "");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(Disk, WhatIsNoFileIsRefused) {
    fs::create_directory(Folder / "folder");
    ASSERT_EQ(::mkfifo(At("pipe").c_str(), 0600), 0);
    std::ofstream(At("file")) << "x";
    std::ofstream(At("huge")) << "x";
    fs::resize_file(Folder / "huge", std::uintmax_t{300} * 1024 * 1024);
    const struct {
        std::string Name;
        Integer Read, Write;
    } cases[] = {{At("folder"), 75, 75},    {At("pipe"), 75, 75},      {"", 52, 52},
                 {At("gone/file"), 76, 76}, {At("file/file"), 76, 76}, {At(std::string(300, 'n')), 52, 52},
                 {At("gone"), 53, 0},       {At("huge"), 75, 0}};
    for (const auto& [name, read, write] : cases) {
        std::string bytes = "before";
        EXPECT_EQ(Real.ReadWhole(name, bytes), read) << name;
        EXPECT_EQ(bytes, "") << name;
        EXPECT_EQ(Real.ReplaceWhole(name, "new"), write) << name;
    }
    EXPECT_EQ(Content("file"), "x");
    EXPECT_TRUE(fs::is_fifo(Folder / "pipe"));
    EXPECT_EQ(Entries(), 5);
}

TEST_F(Disk, ALinkIsFollowedAndRightsAreKept) {
    fs::create_directory(Folder / "real");
    std::ofstream(At("real/file")) << "old";
    fs::permissions(Folder / "real/file", static_cast<fs::perms>(0640));
    fs::create_symlink("real/file", Folder / "link");
    EXPECT_EQ(Real.ReplaceWhole(At("link"), "new"), 0);
    EXPECT_TRUE(fs::is_symlink(Folder / "link"));
    EXPECT_EQ(Content("real/file"), "new");
    EXPECT_EQ(RightsOf(At("real/file")), 0640U);
    EXPECT_EQ(Real.ReplaceWhole(At("fresh"), "new"), 0);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(RightsOf(At("fresh")), 0666U & ~mask);
}

TEST_F(Disk, ALinkThatLeadsNowhereMakesTheFileItNames) {
    fs::create_directory(Folder / "real");
    fs::create_symlink("second", Folder / "first");
    fs::create_symlink("real/file", Folder / "second");
    EXPECT_EQ(Real.ReplaceWhole(At("first"), "new"), 0);
    EXPECT_TRUE(fs::is_symlink(Folder / "first") && fs::is_symlink(Folder / "second"));
    EXPECT_EQ(Content("real/file"), "new");
    fs::create_symlink("gone/file", Folder / "astray");
    EXPECT_EQ(Real.ReplaceWhole(At("astray"), "new"), 76);
    fs::create_symlink("circle", Folder / "circle");
    EXPECT_EQ(Real.ReplaceWhole(At("circle"), "new"), 75);
    EXPECT_EQ(Entries(), 5);
}

TEST_F(Disk, AWriteProtectedFileStaysAsItIs) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "the super-user may write everywhere";
    std::ofstream(At("file")) << "old";
    fs::permissions(Folder / "file", static_cast<fs::perms>(0440));
    EXPECT_EQ(Real.ReplaceWhole(At("file"), "new"), 70);
    EXPECT_EQ(Content("file"), "old");
    fs::permissions(Folder, static_cast<fs::perms>(0550));
    EXPECT_EQ(Real.ReplaceWhole(At("fresh"), "new"), 70);
    fs::permissions(Folder, static_cast<fs::perms>(0750));
    EXPECT_EQ(Entries(), 1);
}

// The system refuses to let the file grow, as a full disk would.
TEST_F(Disk, AWriteThatFailsLeavesTheOldFile) {
    ASSERT_EQ(Real.ReplaceWhole(At("file"), "old"), 0);
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = before;
    small.rlim_cur = 8192;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const Integer failure = Real.ReplaceWhole(At("file"), std::string(100000, 'n'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(failure, 61);
    EXPECT_EQ(Content("file"), "old");
    EXPECT_EQ(Entries(), 1);
}

// A program that saves again and again is killed at a moment that the seed decides.
TEST_F(Disk, AKilledSaveLeavesTheOldFileOrTheNew) {
    const std::string versions[] = {std::string(150000, 'a'), std::string(90000, 'b')};
    std::mt19937 random(11);
    std::string bytes;
    int seen[2] = {0, 0};
    for (int round = 0; round < 40; ++round) {
        int pipe[2];
        ASSERT_EQ(::pipe(pipe), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (std::size_t i = 0;; ++i) {
                if (Real.ReplaceWhole(At("file"), versions[i % 2]) != 0 || ::write(pipe[1], "x", 1) != 1)
                    ::_exit(1);
            }
        }
        ::close(pipe[1]);
        for (auto saves = random() % 3 + 1; saves > 0; --saves) {
            char byte = 0;
            ASSERT_EQ(::read(pipe[0], &byte, 1), 1);
        }
        for (volatile auto spin = random() % 1000000; spin > 0;)
            spin = spin - 1;
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        ::close(pipe[0]);
        ASSERT_EQ(Real.ReadWhole(At("file"), bytes), 0);
        ASSERT_TRUE(bytes == versions[0] || bytes == versions[1]) << round << ": " << bytes.size();
        ++seen[bytes == versions[0] ? 0 : 1];
    }
    // Most of a save goes by before the new file has a name; only the moment of naming can leave one behind,
    // where the system knows files without a name.
    const int unnamed = ::open(Folder.c_str(), O_TMPFILE | O_WRONLY, 0600);
    if (unnamed >= 0) {
        ::close(unnamed);
        EXPECT_LT(Entries(), 1 + 20);
    }
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
}

} // namespace
} // namespace pulselark
