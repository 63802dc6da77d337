#include "host/CommandLine.h"

#include "host/ConnectorByProvider.h"
#include "platform/Errors.h"

namespace koru {
namespace {

class Reader {
 public:
  explicit Reader(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  CommandLine Read() {
    while (at_ < arguments_.size()) Take(arguments_[at_++]);
    Check();
    return line_;
  }

 private:
  void Take(const std::string& argument) {
    if (argument == "--help" || argument == "-h") {
      line_.command = CommandLine::Command::Help;
    } else if (argument == "--version") {
      line_.command = CommandLine::Command::Version;
    } else if (argument == "--database") {
      line_.connection = EmbeddedConnectionText(ValueOf(argument));
    } else if (argument == "--connection") {
      line_.connection = ValueOf(argument);
    } else if (argument == "--desktop") {
      line_.desktop = true;
    } else if (argument == "--pictures") {
      line_.pictures = ValueOf(argument);
    } else if (argument == "-platform") {
      static_cast<void>(ValueOf(argument));
      line_.platformNamed = true;
    } else if (argument.starts_with("-")) {
      throw InputError("گزينة ناشناخته: " + argument);
    } else {
      TakeWord(argument);
    }
  }

  void TakeWord(const std::string& word) {
    if (commandGiven_) {
      line_.files.push_back(word);
    } else if (word == "play") {
      line_.command = CommandLine::Command::Play;
    } else if (word == "create-sample") {
      line_.command = CommandLine::Command::CreateSample;
    } else {
      throw InputError("دستور ناشناخته: " + word);
    }
    commandGiven_ = true;
  }

  const std::string& ValueOf(const std::string& option) {
    if (at_ == arguments_.size()) throw InputError("پس از " + option + " مقداري نيامده است.");
    return arguments_[at_++];
  }

  void Check() const {
    using Command = CommandLine::Command;
    if (line_.command == Command::Play && line_.files.empty()) {
      throw InputError("پس از play نام پروندة سناريو نيامده است.");
    }
    if (line_.command == Command::CreateSample && line_.files.size() != 1) {
      throw InputError("پس از create-sample بايد نام يك پرونده بيايد.");
    }
    const bool forPlay = line_.desktop || !line_.pictures.empty();
    const bool isHelp = line_.command == Command::Help || line_.command == Command::Version;
    if (forPlay && line_.command != Command::Play && !isHelp) {
      throw InputError("--desktop و --pictures تنها با play به كار مي روند.");
    }
    if (!line_.pictures.empty() && !line_.desktop)
      throw InputError("--pictures تنها با --desktop به كار مي رود.");
    if (!line_.connection.empty() && line_.command != Command::HostScreen && !isHelp) {
      throw InputError("--database و --connection با اين دستور به كار نمي روند.");
    }
  }

  const std::vector<std::string>& arguments_;
  std::size_t at_ = 0;
  bool commandGiven_ = false;
  CommandLine line_;
};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) { return Reader(arguments).Read(); }

std::string HelpText() {
  return R"(koru-counting: stock-taking of a store      شمارش موجودي انبار

koru-counting
    Opens the host screen. The first start makes a sample database to try everything with.
    صفحة ميزبان را باز مي كند. در نخستين اجرا يك پايگاه دادة نمونه ساخته مي شود.
koru-counting --database FILE
    Works on that embedded database file.
    با اين پروندة پايگاه دادة توكار كار مي كند.
koru-counting --connection TEXT
    Works on the database of that connection text (Provider=SQLite;... or Provider=SQLOLEDB.1;...).
    با پايگاه دادة اين رشته اتصال كار مي كند.
koru-counting create-sample FILE
    Makes a new sample database; a file that is there already is left alone.
    پايگاه دادة نمونة تازه اي مي سازد؛ پروندة موجود دست نمي خورد.
koru-counting play FILE... [--desktop] [--pictures FOLDER]
    Plays scenarios, each on a database of its own: on the forms, or with --desktop on the windows.
    سناريوها را اجرا مي كند؛ با --desktop روي پنجره ها. --pictures تصوير پنجره ها را نگه مي دارد.
koru-counting --help | --version

Exit codes: 0 all went well, 1 a scenario failed, 2 something given could not be used.
كد پايان: 0 درست، 1 سناريويي نادرست درآمد، 2 ورودي قابل استفاده نبود.
)";
}

}  // namespace koru
