#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace koru {

/// A component of another library of the suite, created by its class name.
class SiblingComponent {
 public:
  SiblingComponent() = default;
  SiblingComponent(const SiblingComponent&) = delete;
  SiblingComponent& operator=(const SiblingComponent&) = delete;
  virtual ~SiblingComponent() = default;
};

/// Creates sibling components by class name, for example "comMessage.comMSG".
class ComponentRegistry {
 public:
  using Factory = std::function<std::unique_ptr<SiblingComponent>()>;

  /// Registers a factory; replaces the factory of a class name that is already registered.
  void Register(std::string className, Factory factory);
  void Unregister(std::string_view className);
  /// Registers a factory and returns the one that it replaces; an empty one for a class name that was or
  /// shall be not registered.
  Factory Exchange(std::string_view className, Factory factory);
  /// A new component. Throws ComponentError with code 429 when the class name is not registered.
  [[nodiscard]] std::unique_ptr<SiblingComponent> Create(std::string_view className) const;

 private:
  std::map<std::string, Factory, std::less<>> factories_;
};

/// The suite's message component. Colours are 24-bit values with red in the low byte.
class MessageComponent : public SiblingComponent {
 public:
  static constexpr std::string_view kClassName = "comMessage.comMSG";

  virtual void SetFormTitle(const std::string& title) = 0;
  virtual void SetFormMessage(const std::string& message) = 0;
  /// 0: a message with one button; 1: a question with yes and no.
  virtual void SetFormType(int type) = 0;
  virtual void SetFormBackColor(std::uint32_t color) = 0;
  virtual void SetBtmBackColor(std::uint32_t color) = 0;
  virtual void SetFrameBackColor(std::uint32_t color) = 0;
  /// Shows the message modally and returns after the user has answered.
  virtual void ClearShow() = 0;
  /// The answer after ClearShow: 1 yes, 0 no, any other value no answer. The suite's interface has this
  /// spelling.
  [[nodiscard]] virtual int Resualt() const = 0;
};

/// The suite's component that shows a receipt or a dispatch, hosted on the counting form.
class DocumentComponent : public SiblingComponent {
 public:
  static constexpr std::string_view kDispatchClassName = "comInventoryExit.comInvExit";
  static constexpr std::string_view kReceiptClassName = "comInventoryReceipt.comInvReceipt";

  virtual void SetConnectionString(const std::string& connectionString) = 0;
  virtual void SetUserID(std::int32_t userID) = 0;
  /// Opens the document with the key `id`.
  virtual void View(std::int32_t id) = 0;
};

}  // namespace koru
