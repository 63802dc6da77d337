#include "scenario/ScenarioWorld.h"

#include <algorithm>
#include <array>
#include <utility>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "database/Sample.h"
#include "database/Schema.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

HostServices WithTables(HostServices services, TableFiles& tables) {
  services.tables = &tables;
  return services;
}

}  // namespace

ScenarioWorld::ScenarioWorld(ScenarioUser& user, const DriverMaker& makeDriver, TableReader readTable,
                             std::optional<std::string> server)
    : server_(std::move(server)),
      tables(std::move(readTable)),
      driver(makeDriver(user, databases_)),
      screen(driver->TheScreen()),
      counting(NewCounting()) {
  driver->RegisterComponents(components);
}

std::unique_ptr<comInvCounting> ScenarioWorld::NewCounting() {
  return std::make_unique<comInvCounting>(
      static_cast<ControlHost&>(*this),
      WithTables({log, components, screen, clock, files_, spreadsheets}, tables));
}

void ScenarioWorld::Restart() {
  const auto forms = screen.Forms();
  if (std::any_of(forms.begin(), forms.end(),
                  [this](const Form* form) { return form->Visible() && screen.IsModal(*form); })) {
    throw ScenarioFailure("the program cannot end in a scenario while a modal form is shown");
  }
  // The window of a form is gone before its form.
  driver->Run([this] {
    if (frmInvCounting* const form = counting->CountingForm()) form->Unload();
  });
  auto started = NewCounting();
  started->SetOLEConnectionString(counting->OLEConnectionString());
  started->SetUserID(counting->UserID());
  counting = std::move(started);
}

void ScenarioWorld::MakeDatabase(Contents contents) {
  if (database_) throw ScenarioFailure("the scenario has its database already");
  const std::string file = TextOf(folder_.Path() / "counting.db");
  if (contents == Contents::Sample) {
    CreateSample(file, {});
  } else {
    CreateDatabaseFile(file, EmbeddedSchema());
  }
  database_ = std::make_unique<ScratchDatabase>(file, server_);
  counting->SetOLEConnectionString(database_->ConnectionText());
}

ScratchDatabase& ScenarioWorld::Sql() {
  if (!database_)
    throw ScenarioFailure(
        "the scenario has no database; it begins with `database sample` or `database empty`");
  return *database_;
}

ProgramStart ScenarioWorld::StartOfProgram(bool withDatabase) const {
  ProgramStart start{folder_.Path(), {}, 0};
  if (!withDatabase) return start;
  if (!database_) throw ScenarioFailure("the scenario has no database that the program could open");
  start.connection = database_->ConnectionText();
  start.user = counting->UserID();
  return start;
}

Form* ScenarioWorld::FindForm(std::string_view name) const {
  if (Form* const shown = screen.Find(name)) return shown;
  frmInvCounting* const form = counting->CountingForm();  // loaded, and perhaps never shown
  return form != nullptr && EqualsNoCase(form->Name(), name) ? form : nullptr;
}

Form& ScenarioWorld::ActiveForm() const {
  Form* const form = screen.ActiveForm();
  if (form == nullptr) throw ScenarioFailure("no form is shown");
  return *form;
}

Control& ScenarioWorld::FindControl(const std::string& name) const {
  const std::size_t dot = name.find('.');
  if (dot != std::string::npos) {
    Form* const form = FindForm(name.substr(0, dot));
    if (form == nullptr) throw ScenarioFailure("there is no loaded form " + name.substr(0, dot));
    if (Control* const control = form->Find(name.substr(dot + 1))) return *control;
    throw ScenarioFailure("there is no control " + name);
  }
  for (Form* const form : std::array<Form*, 2>{screen.ActiveForm(), counting->CountingForm()}) {
    Control* const control = form == nullptr ? nullptr : form->Find(name);
    if (control != nullptr) return *control;
  }
  throw ScenarioFailure("no loaded form has a control " + name);
}

}  // namespace koru
