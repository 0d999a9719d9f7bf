// Tests: tests/ui/DropTest.cpp
#include "ui/DroppedText.h"

#include <utility>

#include "foundation/Utf8.h"
#include "platform/NotificationCenter.h"
#include "ui/View.h"
#include "ui/ZFNotifications.h"

namespace zavel {

bool DroppedText::enter(const std::optional<std::string>& text) {
  text_.reset();
  if (text) text_ = replaceInvalidUtf8(*text);
  return text_.has_value();
}

bool DroppedText::post(const View& target) {
  if (!text_) return false;
  NotificationObject object;
  object.value = Value::Dict{{ZFTextKey, *std::exchange(text_, std::nullopt)}};
  object.identities[ZFViewPointerKey] = target.identity();
  NotificationCenter::shared().post(ZFDropNotification, std::move(object), target.identity());
  return true;
}

}  // namespace zavel
