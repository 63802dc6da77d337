#include "host/CommandLine.h"

#include "adapters/provider/ConnectorByProvider.h"
#include "platform/text/Errors.h"

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
    } else if (argument == "--size") {
      line_.sample = SizeOf(ValueOf(argument));
      sizeGiven_ = true;
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
    } else if (word == "create-sample") {
      line_.command = CommandLine::Command::CreateSample;
    } else if (word == "create-schema") {
      line_.command = CommandLine::Command::CreateSchema;
    } else if (word == "check") {
      line_.command = CommandLine::Command::Check;
    } else {
      throw InputError("دستور ناشناخته: " + word);
    }
    commandGiven_ = true;
  }

  const std::string& ValueOf(const std::string& option) {
    if (at_ == arguments_.size()) throw InputError("پس از " + option + " مقداري نيامده است.");
    return arguments_[at_++];
  }

  static std::optional<SampleSize> SizeOf(const std::string& size) {
    if (size == "standard") return SampleSize::Standard;
    if (size == "medium") return SampleSize::Medium;
    if (size == "full") return SampleSize::Full;
    if (size == "none") return std::nullopt;
    throw InputError("اندازة ناشناخته: " + size + ". اندازه ها: standard، medium، full، none");
  }

  void Check() const {
    using Command = CommandLine::Command;
    CheckDatabaseCommands();
    const bool isHelp = line_.command == Command::Help || line_.command == Command::Version;
    const bool takesConnection = line_.command == Command::HostScreen || WorksOnConnection();
    if (!line_.connection.empty() && !takesConnection && !isHelp) {
      throw InputError("--database و --connection با اين دستور به كار نمي روند.");
    }
  }

  [[nodiscard]] bool WorksOnConnection() const {
    using Command = CommandLine::Command;
    return line_.command == Command::CreateSchema || line_.command == Command::Check;
  }

  void CheckDatabaseCommands() const {
    using Command = CommandLine::Command;
    if (line_.command == Command::CreateSample && (line_.files.size() != 1 || !line_.sample)) {
      throw InputError(line_.sample ? "پس از create-sample بايد نام يك پرونده بيايد."
                                    : "--size none تنها با create-schema به كار مي رود.");
    }
    if (WorksOnConnection() && (line_.connection.empty() || !line_.files.empty())) {
      throw InputError(
          "create-schema و check رشته اتصال را با --connection مي خواهند و پرونده اي نمي خواهند.");
    }
    const bool hasSize = line_.command == Command::CreateSample || line_.command == Command::CreateSchema;
    if (sizeGiven_ && !hasSize && line_.command != Command::Help && line_.command != Command::Version) {
      throw InputError("--size تنها با create-sample و create-schema به كار مي رود.");
    }
  }

  const std::vector<std::string>& arguments_;
  std::size_t at_ = 0;
  bool commandGiven_ = false;
  bool sizeGiven_ = false;
  CommandLine line_;
};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) { return Reader(arguments).Read(); }

std::string HelpText() {
  return R"(koru-counting: stock-taking of a store      شمارش موجودي انبار

koru-counting
    Opens the host screen on the database used last. The first start asks which one: a sample, a file or a server.
    صفحة ميزبان را باز مي كند، با آخرين پايگاه داده. نخستين اجرا مي پرسد: نمونه، پرونده يا سرور.
koru-counting --database FILE
    Works on that embedded database file.
    با اين پروندة پايگاه دادة توكار كار مي كند.
koru-counting --connection TEXT
    Works on the database of that connection text (Provider=SQLite;... or Provider=SQLOLEDB.1;...). A password
    that it lacks is asked for.
    با پايگاه دادة اين رشته اتصال كار مي كند. گذرواژه اي كه در آن نباشد پرسيده مي شود.
koru-counting create-sample [--size standard|medium|full] FILE
    Makes a new sample database; an existing file is not changed. full has 2,000,000 document lines.
    پايگاه دادة نمونة تازه اي مي سازد؛ پروندة موجود دست نمي خورد. full دو ميليون سطر سند دارد.
koru-counting create-schema --connection TEXT [--size standard|medium|full|none]
    Makes the tables, views and sample data in an empty database of a server; none: no sample data.
    جدول ها، نماها و دادة نمونه را در پايگاه دادة خالي سرور مي سازد؛ none يعني بي دادة نمونه.
koru-counting check --connection TEXT
    Reports what of a database works and what is missing.
    مي گويد در پايگاه داده چه چيز درست است و چه چيز كم است.
koru-counting --help | --version

KORU_LOG=FILE logs every statement, with its typed texts where KORU_LOG_TEXTS=1.
KORU_LOG=FILE هر دستور پايگاه داده را ثبت مي كند؛ KORU_LOG_TEXTS=1 متن هاي وارد شده را هم.

Exit codes: 0 success, 1 a check failed, 2 an argument, a file or a database cannot be used.
كد پايان: 0 درست، 1 بررسي نادرست درآمد، 2 ورودي قابل استفاده نبود.
)";
}

}  // namespace koru
