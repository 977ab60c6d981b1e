// Real jobs at a real print server: one of this test's own, on a port of its own, with its queue stopped.
#include "base/AtomicFile.h"
#include "platform/InstalledPrinters.h"
#include "platform/linux/CupsLibrary.h"
#include "platform/linux/CupsPrinters.h"
#include "print/PrintReport.h"
#include "tests/support/Daemon.h"
#include "tests/support/InstalledFonts.h"
#include "tests/support/PdfWords.h"
#include "tests/support/TestProgram.h"
#include "workspace/LoadDocument.h"
#include "workspace/OpenDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <list>
#include <optional>
#include <thread>
#include <unistd.h>

namespace velmora {
namespace {

/// False when it did not come about in time.
bool WaitUntil(const std::function<bool()>& done) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!done() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    return std::chrono::steady_clock::now() < deadline;
}

struct CupsTest : testing::Test {
    TemporaryFolder folder;
    /// One for all tests: the library reads CUPS_SERVER and HOME once.
    static inline const TemporaryFolder home;
    static inline const std::string server = "127.0.0.1:" + std::to_string(FreePort());
    std::optional<Daemon> daemon;
    CupsPrinters printers;
    std::vector<CredentialsRequest> asked;

    void SetUp() override {
        for (const char* name : {"spool", "spool/tmp", "cache", "state"})
            std::filesystem::create_directories(folder / name);
        Write("cupsd.conf",
              "Listen " + server +
                  "\nBrowsing Off\nWebInterface No\nDefaultAuthType None\n<Location />\nAllow all\n"
                  "</Location>\n<Policy default>\nJobPrivateValues none\n<Limit All>\nAllow "
                  "all\n</Limit>\n</Policy>\n<Policy guarded>\n<Limit Create-Job>\nAuthType Basic\nRequire valid-user\n"
                  "</Limit>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n");
        const std::string root = folder.Path().string();
        Write("files.conf", "ServerRoot " + root + "\nRequestRoot " + root + "/spool\nTempDir " + root +
                                "/spool/tmp\nCacheDir " + root + "/cache\nStateDir " + root + "/state\nAccessLog " +
                                root + "/access\nErrorLog " + root + "/error\nPageLog " + root +
                                "/page\nFileDevice Yes\nUser nobody\nGroup nogroup\nSystemGroup root\n");
        const auto queue = [](const std::string& name, const std::string& lines) {
            return "<Printer " + name + ">\nDeviceURI file:///dev/null\n" + lines + "</Printer>\n";
        };
        Write(
            "printers.conf",
            queue("Asking", "State Stopped\nAccepting Yes\nAuthInfoRequired username,password\n") +
                queue("Closed", "State Stopped\nStateMessage Closed for the summer\nAccepting No\n") +
                queue("Empty", "State Idle\nReason media-empty-error\nStateMessage Tray 1 is empty\nAccepting Yes\n") +
                queue("Later", "State Idle\nAccepting Yes\nOption job-hold-until night\n") +
                queue("Guarded", "State Stopped\nAccepting Yes\nOpPolicy guarded\n") +
                queue("Letter", "State Stopped\nAccepting Yes\n") + queue("Points", "State Stopped\nAccepting Yes\n") +
                "<DefaultPrinter Office>\nDeviceURI file:///dev/null\nState Stopped\nStateMessage No drum\n"
                "Accepting Yes\nJobSheets standard none\nOption sides two-sided-long-edge\nOption number-up 2\n"
                "Option copies 2\n</DefaultPrinter>\n");
        std::filesystem::create_directory(folder / "ppd");
        for (const auto& [name, paper, points] :
             {std::tuple{"Letter", "Letter", "612 792"}, {"Points", "A4", "595 842"}})
            Write(std::string("ppd/") + name + ".ppd",
                  std::string("*PPD-Adobe: \"4.3\"\n*OpenUI *PageSize: PickOne\n*DefaultPageSize: ") + paper +
                      "\n*PageSize " + paper + ": \"\"\n*CloseUI: *PageSize\n*ImageableArea " + paper + ": \"0 0 " +
                      points + "\"\n*PaperDimension " + paper + ": \"" + points + "\"\n");
        ::setenv("CUPS_SERVER", server.c_str(), 1);
        ::setenv("HOME", home.Path().c_str(), 1); // for what is saved for queues
        daemon.emplace(
            std::vector<std::string>{"cupsd", "-f", "-c", folder / "cupsd.conf", "-s", folder / "files.conf"});
        WaitUntil([&] { return !printers.Printers().empty(); });
    }
    void Write(const std::string& name, const std::string& text) { ReplaceFile(folder / name, text); }

    std::uintmax_t LargestSpooled() const {
        std::uintmax_t largest = 0;
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "spool", error))
            if (const auto size = entry.file_size(error); !error)
                largest = std::max(largest, size);
        return largest;
    }
    std::string JobAttributes(const std::string& uri) {
        Write("job.test", "{\nOPERATION Get-Job-Attributes\nGROUP operation-attributes-tag\nATTR charset "
                          "attributes-charset utf-8\nATTR naturalLanguage attributes-natural-language en\nATTR uri "
                          "job-uri " +
                              uri + "\n}\n");
        return Shell("ipptool -tv " + uri + " '" + (folder / "job.test").string() + "'").output;
    }
};

TEST_F(CupsTest, JobsArriveWholeWithTheirPaperUnscaledAndNotTurned) {
    const InstalledPrinters all(std::make_unique<CupsPrinters>(), true);
    EXPECT_EQ(all.Printers(), (std::vector<std::string>{"Asking", "Closed", "Empty", "Guarded", "Later", "Letter",
                                                        "Office", "Points", kPdfPrinter}));
    EXPECT_EQ(all.DefaultPrinter(), "Office");
    const std::tuple<double, double, Orientation, const char*> cases[] = {
        {210, 297, Orientation::Portrait, "iso_a4_210x297mm"},
        {110, 220, Orientation::Landscape, "iso_dl_110x220mm"},
        {220, 110, Orientation::Portrait, "custom_220x110mm_220x110mm"}};
    const std::string bytes = "%PDF-1.4\n" + std::string(200'000, 'x'); // more than one block
    Write("a.pdf", bytes);
    int id = 0;
    for (const auto& [width, height, orientation, medium] : cases) {
        EXPECT_EQ(printers.Print("Office", {"Tabs ê", folder / "a.pdf", width, height, orientation}),
                  "the printer is stopped: No drum");
        const std::string job = JobAttributes("ipp://" + server + "/jobs/" + std::to_string(++id));
        for (const std::string& attribute :
             {std::string("media (keyword) = ") + medium, std::string("print-scaling (keyword) = none"),
              std::string("print-quality (enum) = high"), std::string("orientation-requested (enum) = portrait"),
              std::string("sides (keyword) = one-sided"), std::string("number-up (integer) = 1"),
              std::string("copies (integer) = 1"), std::string("= none,none"),
              std::string("document-format-supplied (mimeMediaType) = application/pdf"), std::string("Tabs ê")})
            EXPECT_NE(job.find(attribute), std::string::npos) << attribute << "\n" << job;
        EXPECT_EQ(ReadFile(folder / ("spool/d0000" + std::to_string(id) + "-001")), bytes);
    }
    EXPECT_EQ(printers.Print("Later", {"Tabs", folder / "a.pdf", 210, 297}), "it is held until: night");
    Write("in.csv", TabFileText(0, 1, "0,0", 24, [](int) { return "x,,"; }));
    const Result batch = Shell("'" VELMORA_BATCH "' print --printer Office '" + (folder / "in.csv").string() + "'");
    EXPECT_EQ(batch.output, "velmora-batch: The printer \"Office\" is not ready: the job will wait. It says: No drum "
                            "(paused)\nvelmora-batch: the "
                            "job waits: the printer is stopped: No drum\n");
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
    EXPECT_NE(JobAttributes("ipp://" + server + "/jobs/1").find("= canceled"), std::string::npos) << "a half job";
    EXPECT_FALSE(printers.PaperOf("None", 210, 297).listed);
    daemon.reset();
    EXPECT_EQ(numberOf("Office", "a.pdf"), 482);
    EXPECT_EQ(printers.StateOf("Office").readiness, Readiness::Silent);
    EXPECT_TRUE(printers.Printers().empty());
    EXPECT_FALSE(printers.DefaultPrinter());
}

TEST_F(CupsTest, QueuesSayInTheirOwnWordsWhatKeepsAJobWaiting) {
    const std::tuple<const char*, Readiness, std::string> cases[] = {
        {"Office", Readiness::Waiting, "No drum (paused)"},
        {"Closed", Readiness::Refusing, "Closed for the summer (paused)"},
        {"Empty", Readiness::Waiting, "Tray 1 is empty (media empty error)"},
        {"None", Readiness::Ready, ""}};
    for (const auto& [name, readiness, words] : cases) {
        const PrinterState state = printers.StateOf(name);
        EXPECT_EQ(state.readiness, readiness) << name;
        EXPECT_EQ(state.words, words) << name;
    }
    EXPECT_FALSE(printers.PaperOf("Letter", 210, 297).listed);
    EXPECT_TRUE(printers.PaperOf("Points", 210, 297).listed) << "drivers count in whole points";
    EXPECT_FALSE(printers.PaperOf("Points", 210, 296).listed);
    EXPECT_TRUE(printers.PaperOf("Office", 210, 297).listed) << "without a driver it takes what comes";
    ipp_t* answer = VELMORA_CUPS_CALL(ippNew)();
    EXPECT_EQ(TextOf(VELMORA_CUPS_CALL(ippAddOutOfBand)(answer, IPP_TAG_PRINTER, IPP_TAG_NOVALUE, "media-source")), "");
    VELMORA_CUPS_CALL(ippDelete)(answer);
    daemon->Kill(SIGSTOP);
    EXPECT_EQ(printers.StateOf("Office").readiness, Readiness::Silent);
    daemon->Kill(SIGCONT);
}

TEST_F(CupsTest, APasswordIsAskedForAndNeverInTheTerminal) {
    Write("a.pdf", "%PDF-1.4\n");
    std::vector<std::optional<Credentials>> answers;
    const auto print = [&](const char* printer, AskCredentials ask) {
        asked.clear();
        return printers.Print(printer, {"Tabs", folder / "a.pdf", 210, 297, Orientation::Portrait, {}, std::move(ask)});
    };
    const AskCredentials answering = [&](const CredentialsRequest& request) {
        asked.push_back(request);
        return asked.size() <= answers.size() ? answers[asked.size() - 1] : std::nullopt;
    };
    const auto jobs = [&] { return Shell("ls '" + (folder / "spool").string() + "' | grep -c ^d").output; };
    answers = {Credentials{"nobody", "wrong"}};
    EXPECT_FALSE(print("Guarded", answering)) << "cancelled after the first answer was refused";
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_TRUE(!asked[0].again && asked[1].again && asked[1].user == "nobody" && asked[1].printer == "Guarded");
    EXPECT_THROW(print("Guarded", {}), PrinterError);
    answers.clear();
    EXPECT_FALSE(print("Asking", answering));
    EXPECT_NE(asked.at(0).user, "nobody") << "the next job is of the one before";
    EXPECT_EQ(jobs(), "0\n");
    answers = {Credentials{"me", "se,c'ret"}};
    EXPECT_TRUE(print("Asking", answering));
    EXPECT_EQ(jobs(), "1\n");
    EXPECT_EQ(Shell("awk '/^password/ { print $2 }' '" + (folder / "spool/a00001").string() + "' | base64 -d").output,
              "se,c'ret");
}

TEST_F(CupsTest, AServerThatGoesAwayInTheMiddleOfAJobIsAnError) {
    Write("large.pdf", "%PDF-1.4\n");
    std::filesystem::resize_file(folder / "large.pdf", 2'000'000'000);
    std::jthread killer([&](const std::stop_token& stop) {
        while (!stop.stop_requested() && LargestSpooled() < 1'000'000)
            std::this_thread::yield();
        daemon->Kill(SIGKILL);
    });
    EXPECT_THROW(printers.Print("Office", {"Tabs", folder / "large.pdf", 210, 297, Orientation::Portrait}),
                 PrinterError);
}

/// Succeeds once the service is running, its own names announced.
const std::string kAskNameService = "dbus-send --system --print-reply --dest=org.freedesktop.Avahi / "
                                    "org.freedesktop.Avahi.Server.GetState | grep -qw 'int32 2'";

/// A printer on the network, which keeps the jobs that arrive, behind a queue of the test's server.
struct NetworkPrinterTest : CupsTest {
    std::list<Daemon> daemons;
    const std::string printer = "ipp://localhost:" + std::to_string(FreePort()) + "/ipp/print";

    void SetUp() override {
        CupsTest::SetUp();
        if (::geteuid() != 0 && Shell(kAskNameService).code != 0)
            GTEST_SKIP() << "only root can start the name service";
        // One that cannot be reached belongs to another run of this test.
        Await("! /usr/sbin/avahi-daemon --check || " + kAskNameService);
        if (Shell(kAskNameService).code != 0)
            StartNameService();
        std::filesystem::create_directory(folder / "jobs");
        const std::string port = printer.substr(16, printer.find('/', 16) - 16);
        daemons.emplace_back(std::vector<std::string>{"ippeveprinter", "-f", "application/pdf", "-k", "-d",
                                                      folder / "jobs", "-c", "/bin/true", "-n", "localhost", "-p", port,
                                                      "Simulated"});
        // A printer that is still starting gets a queue without its description.
        Await("PATH=$PATH:/usr/sbin lpadmin -p Desk -E -v " + printer + " -m everywhere && test -s '" +
              (folder / "ppd/Desk.ppd").string() + "'");
    }
    /// The printer announces itself on a bus of the test's own.
    void StartNameService() {
        const std::string bus = "unix:path=" + (folder / "bus").string();
        Write("bus.conf", "<busconfig><type>system</type><listen>" + bus +
                              "</listen><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                              "<allow eavesdrop=\"true\"/><allow own=\"*\"/><allow user=\"*\"/></policy></busconfig>");
        Write("avahi.conf", "[server]\nallow-interfaces=lo\nuse-ipv6=no\n");
        ::setenv("DBUS_SYSTEM_BUS_ADDRESS", bus.c_str(), 1);
        daemons.emplace_back(
            std::vector<std::string>{"dbus-daemon", "--nofork", "--config-file=" + (folder / "bus.conf").string()});
        Await("test -S '" + (folder / "bus").string() + "'");
        daemons.emplace_back(std::vector<std::string>{"avahi-daemon", "-f", folder / "avahi.conf", "--no-drop-root",
                                                      "--no-chroot", "--no-rlimits"});
        Await(kAskNameService);
    }
    static void Await(const std::string& command) {
        EXPECT_TRUE(WaitUntil([&] { return Shell(command).code == 0; })) << command;
    }
    void Batch(const std::string& arguments) {
        const Result result = Shell("cd '" + folder.Path().string() + "' && '" VELMORA_BATCH "' " + arguments);
        EXPECT_EQ(result.code, 0) << arguments << "\n" << result.output;
    }
    void PrintFromTheWindow(const char* queue) {
        TestProgram program([](const std::string& text) { ADD_FAILURE() << text; });
        InstalledPrinters all(std::make_unique<CupsPrinters>(), true);
        MainModule main{program.settings, program.ui, all, program.workbooks, {}, {}, {}};
        LoadDocument(main, ReadTabFile(folder / "in.csv"));
        main.document.DocFileName = folder / "in.csv";
        main.globals.PrinterName = queue;
        LayoutValues layout;
        const InstalledFonts fonts;
        PrintModule print{main, layout, fonts};
        EXPECT_EQ(PrintCommand(print), PrintOutcome::Done);
    }
    std::vector<std::filesystem::path> Arrived() {
        std::vector<std::filesystem::path> jobs;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "jobs"))
            if (entry.path().extension() == ".pdf") // beside what the printer's command said
                jobs.push_back(entry.path());
        std::sort(jobs.begin(), jobs.end());
        return jobs;
    }
    /// The job's file, once its last byte is there.
    std::filesystem::path WaitFor(std::size_t job) {
        WaitUntil([&] {
            return JobAttributes(printer + "/" + std::to_string(job)).find("job-state (enum) = completed") !=
                   std::string::npos;
        });
        return Arrived().at(job - 1);
    }
};

TEST_F(NetworkPrinterTest, EveryTextArrivesInItsTab) {
    // A printer that knows DL only short edge first gets the other layout turned.
    const std::tuple<int, const char*, const char*, const char*, const char*> cases[] = {
        {0, "A4", "A4", "{x-dimension=21000 y-dimension=29700}", "iso_a4_210x297mm"},
        {5, "DL_v", "DL_v", "{x-dimension=11000 y-dimension=22000}", "iso_dl_110x220mm"},
        {5, "DL_h", "DL_v", "{x-dimension=11000 y-dimension=22000}", "iso_dl_110x220mm"}};
    std::size_t job = 0;
    for (const auto& [type, layout, arriving, size, medium] : cases) {
        const auto text = [tabType = type](const char* stationery) {
            return TabFileText(
                tabType, 2, "2.5,-2", 48,
                [](int tab) { return "A" + std::to_string(tab) + ",B" + std::to_string(tab); }, stationery);
        };
        Write("in.csv", text(layout));
        Write("arriving.csv", text(arriving));
        Batch("pdf arriving.csv -o expected.pdf");
        Batch("print in.csv --printer Desk");
        const std::filesystem::path arrived = WaitFor(++job);
        const std::string attributes = JobAttributes(printer + "/" + std::to_string(job));
        // The server names the medium or its size.
        EXPECT_TRUE(attributes.find(size) != std::string::npos || attributes.find(medium) != std::string::npos)
            << layout << attributes;
        EXPECT_NE(attributes.find("print-quality (enum) = high"), std::string::npos) << layout << attributes;
        const auto expected = AllWords(folder / "expected.pdf");
        const auto words = AllWords(arrived);
        ASSERT_EQ(words.size(), expected.size()) << layout;
        for (std::size_t i = 0; i < words.size(); ++i) {
            EXPECT_EQ(words[i].first, expected[i].first) << layout;
            EXPECT_NEAR(words[i].second.left, expected[i].second.left, 0.01) << layout;
            EXPECT_NEAR(words[i].second.bottom, expected[i].second.bottom, 0.01) << layout;
        }
        EXPECT_NE(Shell("pdfinfo '" + arrived.string() + "'")
                      .output.find(type == 0 ? "Pages:           2" : "Pages:           4"),
                  std::string::npos);
    }
}

TEST_F(NetworkPrinterTest, ATabJobIsTheSameWhateverTheQueueAdds) {
    Await("PATH=$PATH:/usr/sbin lpadmin -p Desk -o sides-default=two-sided-long-edge -o number-up-default=2 "
          "-o copies-default=2 -o job-sheets-default=standard,none");
    Await("lpoptions -p Desk/tray -o media-source=by-pass-tray "
          "-o sides=two-sided-long-edge -o PageSize=Letter -o MediaType=Labels");
    Write("in.csv", TabFileText(0, 1, "5,5", 24, [](int tab) { return std::to_string(tab) + ",,"; }));
    const std::tuple<const char*, std::vector<std::string>> cases[] = {
        {"Desk", {}},
        {"Desk --copies 3 --tray MAIN --kind cardstock",
         {"copies (integer) = 3", "media-source=main", "media-type=cardstock"}},
        {"Desk/tray", {"media-source=by-pass-tray", "media-type=labels"}},
        {"Desk/tray --tray manual", {"media-source=manual", "media-type=labels"}},
        {"", {"media-source=by-pass-tray", "media-type=labels"}}};
    std::size_t job = 0;
    for (const auto& [arguments, said] : cases) {
        if (*arguments)
            Batch(std::string("print in.csv --printer ") + arguments);
        else
            PrintFromTheWindow("Desk/tray");
        const std::string page = Shell("pdfinfo '" + WaitFor(++job).string() + "'").output;
        EXPECT_NE(page.find("Pages:           1\n"), std::string::npos) << arguments << page;
        EXPECT_NE(page.find("595.276 x 841.89"), std::string::npos) << arguments << page;
        const std::string attributes = JobAttributes(printer + "/" + std::to_string(job));
        for (const char* each : {"sides (keyword) = one-sided", "{x-dimension=21000 y-dimension=29700}", "[in.csv]"})
            EXPECT_NE(attributes.find(each), std::string::npos) << arguments << each << attributes;
        for (const std::string& each : said)
            EXPECT_NE(attributes.find(each), std::string::npos) << arguments << each << attributes;
    }
    const std::tuple<const char*, const char*> refused[] = {
        {"Desk --tray cellar", "has no tray \"cellar\"; it has auto, main, manual, by-pass-tray"},
        {"Desk --copies 0", "\"0\" is no whole number from 1 to 999"},
        {"Letter", "does not have paper of the sheet's size"},
        {"Closed", "takes no jobs now. It says: Closed for the summer"},
        {"Guarded", "asks for a user and a password"}};
    Batch("print in.csv --printer Letter --anyway");
    for (const auto& [arguments, words] : refused) {
        const Result result =
            Shell("cd '" + folder.Path().string() + "' && '" VELMORA_BATCH "' print in.csv --printer " + arguments);
        EXPECT_NE(result.code, 0) << arguments;
        EXPECT_NE(result.output.find(words), std::string::npos) << arguments << result.output;
    }
}

} // namespace
} // namespace velmora
