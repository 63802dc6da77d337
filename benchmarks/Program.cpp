#include "benchmarks/Program.h"

#include <QApplication>
#include <future>
#include <stdexcept>
#include <utility>

#include "adapters/system/DataFolder.h"
#include "desktop/suite/Windows.h"

namespace koru::bench {

Program::Program(const std::string& file, std::int32_t counting, const std::string& workbooks,
                 DraftStore* drafts)
    : counting_(counting),
      spreadsheets_({.folder = workbooks, .open = Opened, .showMessage = {}}, clock_),
      control_(*this, Services(drafts)) {
  RegisterWindows(screen_, records_);
  RegisterDesktopComponents(components_, databases_, DataFolder());
  messages_.RegisterIn(components_);
  control_.SetOLEConnectionString("Provider=SQLite;Data Source=" + file);
  control_.SetUserID(1);
  Edit();
  Draw();
}

HostServices Program::Services(DraftStore* drafts) {
  HostServices services{databases_, components_, screen_, clock_, files_, spreadsheets_, drafts};
  services.runDraftWrite = [this](std::packaged_task<void()> write) { draftWriter_.Run(std::move(write)); };
  return services;
}

InvCountingWindow& Program::Window() const {
  return dynamic_cast<InvCountingWindow&>(*screen_.WindowOf(Form()));
}

GridView& Program::Lines() const { return *Window().findChild<GridView*>(QStringLiteral("flexDetail")); }

void Program::Edit() {
  if (!control_.View(counting_)) throw std::runtime_error("no such counting");
  Form().Timer1.Fire();
  if (Form().cmdEdit.Enabled()) Press(Form().cmdEdit);  // a final counting is only shown
  Form().Timer1.Fire();
}

void Program::Press(Button& button) {
  if (!button.UserClick()) throw std::runtime_error(button.Name() + " is not available");
  const std::vector<std::string> texts = messages_.Texts();
  if (!texts.empty()) throw std::runtime_error(texts.front());
}

void Program::Draw() {
  constexpr int kRounds = 4;  // fitting a column causes another repaint
  for (int round = 0; round < kRounds; ++round) QApplication::processEvents();
}

}  // namespace koru::bench
