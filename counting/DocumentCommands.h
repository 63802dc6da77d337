#pragma once

#include <cstdint>

#include "control/services/SharedState.h"
#include "counting/CountingFormControls.h"
#include "counting/StoreChange.h"
#include "lines/CountingLines.h"

namespace koru {

/// The commands that change the mode of the document on the form: New, Edit, Delete, Delete all, Cancel.
class DocumentCommands {
 public:
  DocumentCommands(SharedState& shared, CountingFormControls& controls, CountingLines& lines,
                   StoreChange& storeChange, const std::int32_t& defaultStore)
      : shared_(shared),
        controls_(controls),
        lines_(lines),
        storeChange_(storeChange),
        defaultStore_(defaultStore) {}

  void New();
  void Edit();
  void Delete();
  void DeleteAll();
  void Cancel();

 private:
  void SetMode(DocumentMode mode);

  SharedState& shared_;
  CountingFormControls& controls_;
  CountingLines& lines_;
  StoreChange& storeChange_;
  const std::int32_t& defaultStore_;
};

}  // namespace koru
