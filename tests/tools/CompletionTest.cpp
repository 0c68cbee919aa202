// The completion of the command line, in a real bash at a terminal.

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>

#include "tests/tools/Descriptor.h"
#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::RunTool;

constexpr int kMostSeconds = 60;

/// bash at a terminal of its own, in a folder of its own, with the completion loaded.
class Shell {
 public:
    Shell() {
        const std::string tool = folder_.Add("bin/quavera", "#!/bin/sh\nexec " QUAVERA_TEST_EMULATOR
                                                            " '" QUAVERA_TEST_PROGRAM "' \"$@\"\n");
        chmod(tool.c_str(), S_IRWXU);
        folder_.Add("work/answer one.xml", "");
        folder_.Add("work/answers/track/Tra.1.xml", "");
        Start();
        ReadUpTo("$ ");
        Type("PS1='%> '; PATH=" + folder_.path() + "/bin:$PATH; cd " + folder_.path() + "/work\n");
        Type("bind 'set enable-bracketed-paste off'; bind 'set page-completions off'\n");
        Type("bind 'set completion-query-items 0'; . '" QUAVERA_TEST_COMPLETION "'\n");
        // A command that shows its words, and is completed as the tool is.
        Type("alias run=\"printf '[%s]'\"; complete -F _run run\n");
        Type(
            "_run() { COMP_LINE=quavera${COMP_LINE#run}; COMP_POINT=$((COMP_POINT + 4)); "
            "_quavera quavera \"$2\" \"$3\"; }; echo rea''dy\n");
        ReadUpTo("ready\r\n%> ");
    }
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    ~Shell() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }

    /// What bash makes of a line in which tabs complete: the words that the tool would be given,
    /// one between brackets each.
    std::string Completed(const std::string& line) {
        Type("run " + line + "; echo; echo en''d\n");
        const std::string seen = ReadUpTo("end\r\n%> ");
        const std::size_t begin = seen.rfind('\n', seen.rfind("]\r\n")) + 1;
        return seen.substr(begin, seen.rfind("]\r\n") + 1 - begin);
    }

    /// What is shown when there is a choice.
    std::string Choices(const std::string& line) {
        Type(line +
             "\t\t\x15"
             "echo en''d\n");
        return ReadUpTo("end\r\n%> ");
    }

 private:
    void Start() {
        int terminal = -1;
        process_ = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (process_ == 0) {
            setenv("TERM", "dumb", 1);
            setenv("PS1", "$ ", 1);  // it is shown when keys are taken
            setenv("LC_ALL", "C.UTF-8", 1);
            execlp("bash", "bash", "--norc", "--noprofile", "-i", static_cast<char*>(nullptr));
            _exit(1);
        }
        terminal_ = tooltest::Descriptor(terminal);
    }

    void Type(const std::string& keys) {
        EXPECT_EQ(write(terminal_.get(), keys.data(), keys.size()),
                  static_cast<ssize_t>(keys.size()));
    }

    /// What the terminal shows, up to that text.
    std::string ReadUpTo(const std::string& end) {
        std::string seen;
        while (seen.size() < end.size() ||
               seen.compare(seen.size() - end.size(), end.size(), end) != 0) {
            pollfd ready = {terminal_.get(), POLLIN, 0};
            char byte = 0;
            if (poll(&ready, 1, kMostSeconds * 1000) != 1 || read(terminal_.get(), &byte, 1) != 1) {
                ADD_FAILURE() << "no \"" << end << "\" in: " << seen;
                return seen;
            }
            seen += byte;
        }
        return seen;
    }

    const tooltest::TempFolder folder_;
    pid_t process_ = -1;
    tooltest::Descriptor terminal_;
};

TEST(Completion, CompletesCommandsOptionsNamesAndFiles) {
    Shell shell;
    EXPECT_EQ(shell.Completed("sho\t"), "[show]");
    EXPECT_EQ(shell.Completed("show --js\t"), "[show][--json]");
    EXPECT_EQ(shell.Completed("show --record DataTr\t"), "[show][--record][DataTrackInfo]");
    EXPECT_EQ(shell.Completed("records DataMemberLibraryL\t"), "[records][DataMemberLibraryLite]");
    EXPECT_EQ(shell.Completed("fetch --endpoint http://127.0.0.1:8080 modi\t"),
              "[fetch][--endpoint][http://127.0.0.1:8080][modification]");
    EXPECT_EQ(shell.Completed("show --json answer\\ \t"), "[show][--json][answer one.xml]");
    EXPECT_EQ(shell.Completed("serve --catalog answe\ttrack"), "[serve][--catalog][answers/track]");
    EXPECT_EQ(shell.Completed("error --branding Os\t-2"), "[error][--branding][Ostinex][-2]");
    EXPECT_EQ(shell.Completed("help dem\t"), "[help][demo]");
    // In the middle of a line: two characters back, and on to the end behind it.
    EXPECT_EQ(shell.Completed("sho x\x02\x02\t\x05"), "[show][x]");
}

TEST(Completion, OffersAllCommands) {
    Shell shell;
    const std::string choices = shell.Choices("quavera ");
    for (const char* const command :
         {"tree", "text", "show", "diff", "records", "fetch", "serve", "error", "demo", "help"}) {
        EXPECT_NE(choices.find(command), std::string::npos) << command << " in " << choices;
    }
}

TEST(Completion, NamesWhatMayStandThere) {
    const auto complete = [](tooltest::Arguments words) {
        words.insert(words.begin(), "--complete");
        return RunTool(words).output;
    };
    EXPECT_EQ(complete({"di"}), "diff\n");
    EXPECT_EQ(complete({"--he"}), "--help\n");
    EXPECT_EQ(complete({"nonsense", ""}), "");
    EXPECT_EQ(complete({"show", ""}), ":files\n");
    EXPECT_EQ(complete({"show", "one.xml", "two.xml", ""}), ":files\n");
    EXPECT_EQ(complete({"diff", "one.xml", ""}), ":files\n");
    EXPECT_EQ(complete({"diff", "one.xml", "two.xml", ""}), "");
    EXPECT_EQ(complete({"demo", ""}), "");
    EXPECT_EQ(complete({"fetch", "--timeout", "7", "im"}), "images\n");
    EXPECT_EQ(complete({"fetch", "--tree", "im"}), "images\n");
    EXPECT_EQ(complete({"fetch", "--timeout", ""}), "");
}

}  // namespace
