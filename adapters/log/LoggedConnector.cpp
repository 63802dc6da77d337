#include "adapters/log/LoggedConnector.h"

#include <chrono>
#include <string_view>
#include <utility>

#include "adapters/log/LogTexts.h"
#include "platform/sql/CallText.h"
#include "platform/sql/DatabaseError.h"
#include "platform/sql/ForwardingDatabase.h"

namespace koru {
namespace {

using Steady = std::chrono::steady_clock;

/// When a piece of work began.
struct Begin {
  LogFile::Clock::time_point begun = LogFile::Clock::now();
  Steady::time_point start = Steady::now();
};

std::string FailureText(int code, const std::string& words) {
  return "error " + std::to_string(code) + ": " + words;
}

/// What one connection writes into the log.
class Journal {
 public:
  explicit Journal(LogFile& log) : log_(log), connection_(std::to_string(log.NextConnection())) {}

  /// Does the work and notes its beginning, duration and outcome. `outcome` writes what the work returned,
  /// `text` what the work is, `error` the words of a failure, which is thrown on.
  template <class Work, class Outcome, class Text, class Error>
  auto Run(const Work& work, const Outcome& outcome, const Text& text, const Error& error) {
    const Begin begin;
    try {
      auto result = work();
      Note(
          begin, [&] { return outcome(result); }, text);
      return result;
    } catch (const DatabaseError& failure) {
      Note(
          begin, [&] { return FailureText(failure.Code(), error(failure.ServerText())); }, text);
      throw;
    } catch (const std::exception& failure) {
      Note(
          begin, [&] { return "error: " + error(failure.what()); }, text);
      throw;
    }
  }

  /// Work without a result and without a typed text.
  template <class Work>
  void Do(std::string_view text, const Work& work) {
    Run(
        [&] {
          work();
          return true;
        },
        [](bool) { return "done"; }, [&] { return text; }, [](const std::string& words) { return words; });
  }

  [[nodiscard]] bool WithTexts() const { return log_.Settings().withTexts; }

  /// Notes work that has ended just now. Never throws: what has been done has been done, whether it can be
  /// noted or not.
  template <class Outcome, class Text>
  void Note(const Begin& begin, const Outcome& outcome, const Text& text) noexcept {
    try {
      const Steady::duration duration = Steady::now() - begin.start;
      log_.Append(begin.begun, duration, connection_, outcome(), text());
    } catch (const std::exception&) {  // no memory for the line
    }
  }

 private:
  LogFile& log_;
  std::string connection_;
};

std::string RowsText(const Recordset& records) {
  if (records.Columns().empty()) return "done";
  return std::to_string(records.RecordCount()) + (records.RecordCount() == 1 ? " row" : " rows");
}

class LoggedWriteBatch : public WriteBatch {
 public:
  LoggedWriteBatch(Journal& journal, std::unique_ptr<WriteBatch> inner)
      : journal_(journal), inner_(std::move(inner)) {}
  ~LoggedWriteBatch() override {
    if (inner_) journal_.Do("write batch given up", [this] { inner_.reset(); });
  }

  void Finish() override {
    const std::unique_ptr<WriteBatch> inner = std::move(inner_);
    journal_.Do("write batch finished", [&] { inner->Finish(); });
  }

 private:
  Journal& journal_;
  std::unique_ptr<WriteBatch> inner_;
};

class LoggedReadSnapshot : public ReadSnapshot {
 public:
  LoggedReadSnapshot(Journal& journal, std::unique_ptr<ReadSnapshot> inner)
      : journal_(journal), inner_(std::move(inner)) {}
  ~LoggedReadSnapshot() override {
    journal_.Do("read snapshot ends", [this] { inner_.reset(); });
  }

 private:
  Journal& journal_;
  std::unique_ptr<ReadSnapshot> inner_;
};

class LoggedDatabase : public ForwardingDatabase {
 public:
  LoggedDatabase(std::unique_ptr<Journal> journal, std::unique_ptr<Database> inner)
      : ForwardingDatabase(std::move(inner)), journal_(std::move(journal)) {}
  ~LoggedDatabase() override {
    journal_->Do("connection closed", [this] { Close(); });
  }

  Recordset Open(const SqlText& statement) override {
    return journal_->Run([&] { return Inner().Open(statement); }, RowsText, [&] { return TextOf(statement); },
                         [&](const std::string& words) { return ErrorOf(words, statement); });
  }

  /// A line for each statement, with the time since they were sent.
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override {
    const Begin begin;
    std::size_t done = 0;
    try {
      Inner().OpenAll(statements, [&](std::size_t number, const Recordset& records) {
        journal_->Note(
            begin, [&] { return RowsText(records); }, [&] { return TextOf(statements[number]); });
        done = number + 1;
        take(number, records);
      });
    } catch (const DatabaseError& failure) {
      if (done == statements.size()) throw;
      const SqlText& failed = statements[done];
      journal_->Note(
          begin, [&] { return FailureText(failure.Code(), ErrorOf(failure.ServerText(), failed)); },
          [&] { return TextOf(failed); });
      throw;
    }
  }

  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override {
    return journal_->Run([&] { return Inner().Call(procedure, parameters); },
                         [](std::int32_t result) { return "returned " + std::to_string(result); },
                         [&] { return CallText(procedure, parameters); },
                         [](const std::string& words) { return words; });
  }

  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() override {
    std::unique_ptr<WriteBatch> inner;
    journal_->Do("write batch begins", [&] { inner = Inner().BeginWriteBatch(); });
    return std::make_unique<LoggedWriteBatch>(*journal_, std::move(inner));
  }

  [[nodiscard]] std::unique_ptr<ReadSnapshot> BeginReadSnapshot() override {
    std::unique_ptr<ReadSnapshot> inner;
    journal_->Do("read snapshot begins", [&] { inner = Inner().BeginReadSnapshot(); });
    return std::make_unique<LoggedReadSnapshot>(*journal_, std::move(inner));
  }

 private:
  [[nodiscard]] std::string TextOf(const SqlText& statement) const {
    return journal_->WithTexts() ? statement.Text() : MaskedStatement(statement);
  }
  [[nodiscard]] std::string ErrorOf(const std::string& words, const SqlText& statement) const {
    return journal_->WithTexts() ? words : MaskedError(words, statement);
  }

  std::unique_ptr<Journal> journal_;
  std::unique_ptr<Database> inner_;
};

}  // namespace

std::unique_ptr<Database> LoggedConnector::Connect(const std::string& connectionText) {
  if (!log_.IsOn()) return inner_->Connect(connectionText);
  auto journal = std::make_unique<Journal>(log_);
  std::unique_ptr<Database> inner;
  journal->Run(
      [&] {
        inner = inner_->Connect(connectionText);
        return true;
      },
      [](bool) { return "connected"; }, [&] { return ConnectionForLog(connectionText); },
      [&](const std::string& words) { return ErrorWithoutPasswords(words, connectionText); });
  return std::make_unique<LoggedDatabase>(std::move(journal), std::move(inner));
}

}  // namespace koru
