#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/play/Stage.h"
#include "host/play/Story.h"
#include "host/play/StoryWorld.h"

namespace koru {

/// Plays one story on a stage of its own with a fresh database. A message, a question or a modal form comes
/// in the middle of the step that caused it; the steps behind that one then go on from inside, until the
/// message is answered or the form is hidden.
class Player : private Person {
 public:
  /// How the steps of a story are written, for ParseStory.
  [[nodiscard]] static const std::vector<std::string_view>& Patterns();

  /// `story` must outlive the player.
  Player(const Story& story, const StageMaker& makeStage, TrialRoute route = {});

  /// Plays to the end or to the first failure. Answers the failure (`file:line: sentence`); empty when all
  /// went as the story says.
  [[nodiscard]] std::string Play();

 private:
  Answer AnswerMessage(const ShownMessage& message) override;
  void UseModalForm(Form& form) override;
  std::vector<std::string> PickGoods() override;
  DocumentUse UseDocument(const ShownDocument& document) override;
  void CannotDo(const std::string& what) override;

  [[nodiscard]] bool GoesOn() const { return failure_.empty() && next_ < story_.steps.size(); }
  [[nodiscard]] bool NextLooksOnly() const;
  void PlayNext();
  void Run(const StoryStep& step);
  void CheckError(const StoryStep* step);
  /// Plays the steps that only look, then takes the one that answers what is shown: its first word is one of
  /// `words`. nullptr when the story has another one there, or has failed.
  const StoryStep* TakeAnswer(const std::string& shown, std::initializer_list<std::string_view> words);
  Answer Compare(const ShownMessage& message);
  void Fail(const std::string& what);

  const Story& story_;
  StoryWorld world_;
  std::size_t next_ = 0;
  std::size_t current_ = 0;             ///< the step that failures are reported at
  std::size_t errorAt_ = 0;             ///< the step whose error has not been looked at
  const ShownMessage* open_ = nullptr;  ///< the message that stands before the person
  std::string failure_;
};

}  // namespace koru
