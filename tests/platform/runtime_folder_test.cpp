// Where the run-time folder is, and which folders are refused.
#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "host/platform/runtime_path.h"
#include "support.h"

namespace quillon::test {
namespace {

using host::QueueError;
using host::RuntimeFolder;

std::string inside(const char *name)
{
    return runtime_folder() + "/" + name;
}

// Runs without a run-time folder in the environment, which it leaves as it was.
class RuntimeFolderTest : public testing::Test {
  protected:
    void SetUp() override
    {
        unsetenv("QUILLON_RUNTIME_DIR");
        unsetenv("XDG_RUNTIME_DIR");
    }
    void TearDown() override
    {
        setenv("QUILLON_RUNTIME_DIR", runtime_folder().c_str(), 1);
        for (const auto &entry : std::filesystem::directory_iterator(runtime_folder())) {
            std::filesystem::remove_all(entry);
        }
    }

    // What claiming `path` is refused with.
    static std::string refusal(const std::string &path)
    {
        setenv("QUILLON_RUNTIME_DIR", path.c_str(), 1);
        try {
            RuntimeFolder::claim();
        } catch (const QueueError &error) {
            return error.what();
        }
        return "not refused";
    }
};

TEST_F(RuntimeFolderTest, IsFoundByTheEnvironment)
{
    setenv("XDG_RUNTIME_DIR", runtime_folder().c_str(), 1);
    EXPECT_EQ(RuntimeFolder::claim().path(), inside("quillon"));
    setenv("QUILLON_RUNTIME_DIR", "", 1);
    EXPECT_EQ(RuntimeFolder::claim().path(), inside("quillon")) << "empty is not set";
    setenv("QUILLON_RUNTIME_DIR", inside("own").c_str(), 1);
    EXPECT_EQ(RuntimeFolder::claim().path(), inside("own"));
    struct stat status;
    ASSERT_EQ(stat(inside("own").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, static_cast<mode_t>(S_IFDIR | 0700));
}

TEST_F(RuntimeFolderTest, IsRefusedWithAReason)
{
    std::filesystem::create_directory(inside("open"));
    std::filesystem::permissions(inside("open"), std::filesystem::perms(0755));
    std::filesystem::create_directory(inside("target"));
    std::filesystem::permissions(inside("target"), std::filesystem::perms(0700));
    std::filesystem::create_directory_symlink(inside("target"), inside("link"));
    ASSERT_TRUE(std::ofstream(inside("file")).good());
    const std::string long_path = "/tmp/" + std::string(100, 'q');

    EXPECT_THAT(refusal(inside("open")), testing::HasSubstr("is open to other users"));
    EXPECT_THAT(refusal(inside("link")), testing::HasSubstr("is a symbolic link"));
    EXPECT_THAT(refusal(inside("file")), testing::HasSubstr("no folder"));
    EXPECT_THAT(refusal(inside("missing/sub")), testing::HasSubstr("cannot be created"));
    EXPECT_THAT(refusal("relative"), testing::HasSubstr("is not absolute"));
    EXPECT_THAT(refusal(long_path), testing::HasSubstr("too long"));
    EXPECT_FALSE(std::filesystem::exists(long_path.substr(0, 85)));
    if (geteuid() == 0) {
        ASSERT_EQ(chown(inside("target").c_str(), 65534, 65534), 0);
        EXPECT_THAT(refusal(inside("target")), testing::HasSubstr("belongs to another user"));
    }
}

// Fault: a name that is one byte too long for a socket is found out only when the queue is made, or cut.
TEST_F(RuntimeFolderTest, TheLongestPathWorks)
{
    std::string path = inside("");
    path.append(host::kLongestRuntimePath - path.size(), 'q');
    EXPECT_THAT(refusal(path + "q"), testing::HasSubstr("too long"));
    setenv("QUILLON_RUNTIME_DIR", path.c_str(), 1);
    const RuntimeFolder folder = RuntimeFolder::claim();
    host::QueueServer server(folder);
    server.create_queue(UINT32_MAX, [](host::Request &) { return size_t{0}; });
    EXPECT_TRUE(std::filesystem::is_socket(path + "/queue-4294967295"));
}

// Fault: two driver processes in one folder take each other's clients.
TEST_F(RuntimeFolderTest, HasOneDriverProcess)
{
    setenv("QUILLON_RUNTIME_DIR", runtime_folder().c_str(), 1);
    {
        const Driver driver;
        EXPECT_THAT(refusal(runtime_folder()), testing::HasSubstr("in use by another driver process"));
        EXPECT_EQ(ask(attach(), Ask::queue), kQueue);
    }
    EXPECT_EQ(refusal(runtime_folder()), "not refused");
}

}  // namespace
}  // namespace quillon::test
