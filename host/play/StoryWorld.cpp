#include "host/play/StoryWorld.h"

#include <array>
#include <utility>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "adapters/sqlite/FilePath.h"
#include "database/Sample.h"
#include "database/Schema.h"
#include "host/play/StepKind.h"
#include "platform/Text.h"

namespace koru {

StoryWorld::StoryWorld(Person& person, const StageMaker& makeStage, TrialRoute route)
    : route_(std::move(route)),
      stage(makeStage(person, databases_)),
      screen(stage->TheScreen()),
      counting(static_cast<ControlHost&>(*this),
               Surroundings{log, components, screen, clock, files_, spreadsheets}) {
  stage->RegisterComponents(components);
}

void StoryWorld::MakeDatabase(Contents contents) {
  if (database_) throw StoryFailure("the story has its database already");
  const std::string file = TextOf(folder_.Path() / "story.db");
  if (contents == Contents::Sample) {
    CreateSample(file, {});
  } else {
    CreateDatabaseFile(file, EmbeddedSchema());
  }
  database_ = std::make_unique<TrialDatabase>(route_, file);
  counting.SetOLEConnectionString(database_->ConnectionText());
}

TrialDatabase& StoryWorld::Sql() {
  if (!database_)
    throw StoryFailure("the story has no database; it begins with `database sample` or `database empty`");
  return *database_;
}

Form* StoryWorld::FindForm(std::string_view name) const {
  if (Form* const shown = screen.Find(name)) return shown;
  frmInvCounting* const form = counting.CountingForm();  // loaded, and perhaps never shown
  return form != nullptr && EqualsNoCase(form->Name(), name) ? form : nullptr;
}

Form& StoryWorld::ActiveForm() const {
  Form* const form = screen.ActiveForm();
  if (form == nullptr) throw StoryFailure("no form is shown");
  return *form;
}

Control& StoryWorld::FindControl(const std::string& name) const {
  const std::size_t dot = name.find('.');
  if (dot != std::string::npos) {
    Form* const form = FindForm(name.substr(0, dot));
    if (form == nullptr) throw StoryFailure("there is no loaded form " + name.substr(0, dot));
    if (Control* const control = form->Find(name.substr(dot + 1))) return *control;
    throw StoryFailure("there is no control " + name);
  }
  for (Form* const form : std::array<Form*, 2>{screen.ActiveForm(), counting.CountingForm()}) {
    Control* const control = form == nullptr ? nullptr : form->Find(name);
    if (control != nullptr) return *control;
  }
  throw StoryFailure("no loaded form has a control " + name);
}

}  // namespace koru
