// Real jobs at a real print server: one of this test's own, on a port of its own, with its queue stopped.
#include "base/AtomicFile.h"
#include "platform/linux/CupsPrinters.h"
#include "platform/linux/InstalledPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velmora {
namespace {

/// A port that was free a moment ago.
int FreePort() {
    const int probe = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(probe, reinterpret_cast<sockaddr*>(&address), size);
    ::getsockname(probe, reinterpret_cast<sockaddr*>(&address), &size);
    ::close(probe);
    return ntohs(address.sin_port);
}

std::string Shell(const std::string& command) {
    std::string output;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    for (int c = 0; (c = std::fgetc(pipe)) != EOF;)
        output += static_cast<char>(c);
    ::pclose(pipe);
    return output;
}

struct CupsTest : testing::Test {
    TemporaryFolder folder;
    /// One for all tests: the library reads CUPS_SERVER once.
    static inline const std::string server = "127.0.0.1:" + std::to_string(FreePort());
    pid_t process = 0;
    CupsPrinters printers;

    void SetUp() override {
        for (const char* name : {"spool", "spool/tmp", "cache", "state"})
            std::filesystem::create_directories(folder / name);
        Write(
            "cupsd.conf",
            "Listen " + server +
                "\nBrowsing Off\nWebInterface No\nDefaultAuthType None\n<Location />\nAllow all\n"
                "</Location>\n<Policy default>\nJobPrivateValues none\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n");
        const std::string root = folder.Path().string();
        Write("files.conf", "ServerRoot " + root + "\nRequestRoot " + root + "/spool\nTempDir " + root +
                                "/spool/tmp\nCacheDir " + root + "/cache\nStateDir " + root + "/state\nAccessLog " +
                                root + "/access\nErrorLog " + root + "/error\nPageLog " + root +
                                "/page\nFileDevice Yes\nUser nobody\nGroup nogroup\nSystemGroup root\n");
        Write("printers.conf",
              "<DefaultPrinter Office>\nDeviceURI file:///dev/null\nState Stopped\nAccepting Yes\n</DefaultPrinter>\n"
              "<Printer Closed>\nDeviceURI file:///dev/null\nState Stopped\nAccepting No\n</Printer>\n");
        ::setenv("CUPS_SERVER", server.c_str(), 1);
        process = ::fork();
        if (process == 0) {
            ::setenv("PATH", "/usr/sbin:/usr/bin:/sbin:/bin", 1);
            ::execlp("cupsd", "cupsd", "-f", "-c", (folder / "cupsd.conf").c_str(), "-s",
                     (folder / "files.conf").c_str(), nullptr);
            ::_exit(127);
        }
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (printers.Printers().empty() && std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    void TearDown() override { StopServer(); }
    void StopServer() {
        if (process <= 0)
            return;
        ::kill(process, SIGTERM);
        ::waitpid(process, nullptr, 0);
        process = 0;
    }
    void Write(const std::string& name, const std::string& text) { ReplaceFile(folder / name, text); }

    std::string JobAttributes(int job) {
        Write("job.test", "{\nOPERATION Get-Job-Attributes\nGROUP operation-attributes-tag\nATTR charset "
                          "attributes-charset utf-8\nATTR naturalLanguage attributes-natural-language en\nATTR uri "
                          "job-uri ipp://" +
                              server + "/jobs/" + std::to_string(job) + "\n}\n");
        return Shell("ipptool -tv ipp://" + server + "/ '" + (folder / "job.test").string() + "'");
    }
};

TEST_F(CupsTest, JobsArriveWholeWithTheirPaperUnscaledAndNotTurned) {
    const InstalledPrinters all(std::make_unique<CupsPrinters>(), true);
    EXPECT_EQ(all.Printers(), (std::vector<std::string>{"Closed", "Office", kPdfPrinter}));
    EXPECT_EQ(all.DefaultPrinter(), "Office");
    const std::tuple<double, double, Orientation, const char*> cases[] = {
        {210, 297, Orientation::Portrait, "iso_a4_210x297mm"},
        {110, 220, Orientation::Landscape, "iso_dl_110x220mm"},
        {220, 110, Orientation::Portrait, "custom_220x110mm_220x110mm"}};
    const std::string bytes = "%PDF-1.4\n" + std::string(200'000, 'x'); // more than one block
    Write("a.pdf", bytes);
    int id = 0;
    for (const auto& [width, height, orientation, medium] : cases) {
        printers.Print("Office", {"Tabs ê", folder / "a.pdf", width, height, orientation});
        const std::string job = JobAttributes(++id);
        for (const std::string& attribute :
             {std::string("media (keyword) = ") + medium, std::string("print-scaling (keyword) = none"),
              std::string("print-quality (enum) = high"), std::string("orientation-requested (enum) = portrait"),
              std::string("document-format-supplied (mimeMediaType) = application/pdf"), std::string("Tabs ê")})
            EXPECT_NE(job.find(attribute), std::string::npos) << attribute << "\n" << job;
        EXPECT_EQ(ReadFile(folder / ("spool/d0000" + std::to_string(id) + "-001")), bytes);
    }
}

TEST_F(CupsTest, RefusalsCarryTheirNumber) {
    Write("a.pdf", "%PDF-1.4\n");
    const auto numberOf = [&](const std::string& printer, const std::string& file) {
        try {
            printers.Print(printer, {"Tabs", folder / file, 210, 297, Orientation::Portrait});
        } catch (const Error& error) {
            return error.Number();
        }
        return -1;
    };
    EXPECT_EQ(numberOf("None", "a.pdf"), 5707);
    EXPECT_EQ(numberOf("Closed", "a.pdf"), 482);
    EXPECT_EQ(numberOf("Office", "none.pdf"), ENOENT);
    EXPECT_EQ(Shell("ls '" + (folder / "spool").string() + "' | grep -c ^d"), "0\n") << "no half job";
    EXPECT_FALSE(printers.PaperOf("None", 210, 297).listed);
    StopServer();
    EXPECT_EQ(numberOf("Office", "a.pdf"), 482);
    EXPECT_TRUE(printers.Printers().empty());
    EXPECT_FALSE(printers.DefaultPrinter());
}

} // namespace
} // namespace velmora
