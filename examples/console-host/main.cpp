// A host without a toolkit: opens a stored counting of a new sample database with the component alone, edits
// and registers it, and prints the final number and the totals. Usage: koru-console-host NEW-DATABASE-FILE
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/system/SystemServices.h"
#include "component/comInvCounting.h"
#include "database/Sample.h"

namespace {

/// Prints messages, and answers every question with yes.
class ConsoleMessage : public koru::MessageComponent {
 public:
  void SetFormTitle(const std::string& title) override { title_ = title; }
  void SetFormMessage(const std::string& message) override { message_ = message; }
  void SetFormType(int type) override { isQuestion_ = type == 1; }
  void SetFormBackColor(std::uint32_t) override {}
  void SetBtmBackColor(std::uint32_t) override {}
  void SetFrameBackColor(std::uint32_t) override {}
  void ClearShow() override {
    std::cout << title_ << ": " << message_ << (isQuestion_ ? " -> بلي" : "") << '\n';
  }
  [[nodiscard]] int Resualt() const override { return 1; }

 private:
  std::string title_;
  std::string message_;
  bool isQuestion_ = false;
};

/// Nothing is drawn. A modal form would wait for a user that does not exist, so it is closed at once.
class NoScreen : public koru::Screen {
 public:
  void SetCursor(koru::Cursor cursor) override { cursor_ = cursor; }
  [[nodiscard]] koru::Cursor CurrentCursor() const override { return cursor_; }
  void Show(koru::Form& form, bool modal) override {
    if (modal) form.UserClose();
  }

 private:
  koru::Cursor cursor_ = koru::Cursor::Normal;
};

class NoSpreadsheets : public koru::SpreadsheetStarter {
 public:
  [[nodiscard]] std::unique_ptr<koru::Spreadsheet> NewWorkbook() override {
    throw std::runtime_error("this host has no spreadsheet program");
  }
};

class ConsoleHost : public koru::ControlHost {
 public:
  [[nodiscard]] koru::Font AmbientFont() const override { return {"Tahoma", 9, false, false}; }
  void PropertyChanged(std::string_view) override {}
};

void Press(koru::Button& button) {
  if (!button.UserClick()) throw std::runtime_error("the button " + button.Name() + " is disabled");
}

void RegisterCounting(const std::string& file, std::int32_t id) {
  koru::CreateSample(file, {});
  // All that HostServices refers to outlives the control, which is declared last.
  koru::SqliteConnector databases;
  koru::ComponentRegistry components;
  components.Register(std::string(koru::MessageComponent::kClassName),
                      [] { return std::make_unique<ConsoleMessage>(); });
  NoScreen screen;
  koru::SystemClock clock;
  koru::SystemFileSystem files;
  NoSpreadsheets spreadsheets;
  ConsoleHost host;
  koru::comInvCounting control(host, {databases, components, screen, clock, files, spreadsheets});

  control.SetOLEConnectionString(koru::EmbeddedConnectionText(file));
  control.SetUserID(1);
  if (!control.View(id)) throw std::runtime_error("there is no counting " + std::to_string(id));
  koru::frmInvCounting& form = *control.CountingForm();
  Press(form.cmdEdit);
  form.Timer1.Fire();  // which commands are enabled changes with the form's timer, which the host's loop runs
  Press(form.cmdIsFinalized);
  if (form.txtCode.Text().empty()) throw std::runtime_error("the counting was not registered");
  std::cout << "counting " << id << " is registered under the number " << form.txtCode.Text()
            << "; shortages " << form.txtTotalBelowValue.Text() << ", surpluses "
            << form.txtTotalAboveValue.Text() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc != 2) throw std::runtime_error("usage: koru-console-host NEW-DATABASE-FILE");
    RegisterCounting(argv[1], 17);
    return EXIT_SUCCESS;
  } catch (const std::exception& failure) {
    std::cerr << "koru-console-host: " << failure.what() << '\n';
    return EXIT_FAILURE;
  }
}
