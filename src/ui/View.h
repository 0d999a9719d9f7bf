// The ground of all widgets: what has a place, can be hidden, and holds other widgets.
//
// Widgets don't draw. They hold state that a host reads and shows in its own way, and take the events that a
// host passes on. Two kinds of signals, never to be mixed up:
//   changed                     for hosts: something that can be read is different now, whoever did it
//   clicked, chosen, textEdited for the logic behind a widget: the user did something
// A setter emits the first kind only, and only when the state really differs; an event method (click(),
// choose(), type()) emits both. docs/hosting.md shows how a host puts this to use.
//
// A third kind is for both: selectionChanged, started and finished are emitted whoever brought it about.
//
// Handlers must not throw. A handler of `changed` destroys no widget. One of a user's event may destroy any,
// the widget that sends it included, and so may one of the third kind while a user's event runs. While logic
// is at work on its widgets, a look-up that selects its row for instance, the third kind leaves the
// controller of those widgets alone. All is to be used on one thread.
#ifndef UI_VIEW_H
#define UI_VIEW_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/Export.h"
#include "ui/Rect.h"
#include "ui/Signal.h"

namespace zavel {

class ZAVEL_API View {
 public:
  View() = default;
  explicit View(const Rect& frame) : frame_(frame) {}
  // Takes the view out of its parent, and leaves its children without one.
  virtual ~View();
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  const Rect& frame() const { return frame_; }
  void setFrame(const Rect& frame) { change(frame_, frame); }

  bool hidden() const { return hidden_; }
  void setHidden(bool hidden) { change(hidden_, hidden); }

  // True when neither this view nor any around it is hidden or stands in a tab that isn't up. Events for
  // what is not shown are refused.
  bool shown() const;

  const std::string& tooltip() const { return tooltip_; }
  void setTooltip(const std::string& tooltip) { change(tooltip_, tooltip); }

  // The widgets inside, in the order in which they came. Borrowed: whoever made a widget owns it, and may
  // destroy it before or after its parent.
  const std::vector<View*>& children() const { return children_; }
  View* parent() const { return parent_; }
  // Takes the child from the parent that it had. A view that is this one, or around it, is refused.
  void addChild(View& child);
  void removeChild(View& child);

  // Compared, never followed: what stands for this view in a notification.
  const void* identity() const { return this; }

  // --- Drags, as a host passes them on ---

  // A drag came in, with the string that it offers, if it offers one. True if the view would take it.
  virtual bool dragEntered(const std::optional<std::string>& text);
  virtual void dragExited() {}
  // What entered is let go here. True if it was taken.
  virtual bool drop() { return false; }

  // Emitted at each change of this view and of any view inside it, with the one that changed: a host
  // connects once, at the root.
  Signal<View&> changed;

 protected:
  void notifyChange();

  // Expires with this view: what an event method looks at behind a signal whose handler may destroy it.
  std::weak_ptr<const bool> alive() const { return alive_; }

  // Sets the field and tells; false and silent when it has that value already.
  template <typename T>
  bool change(T& field, const T& value) {
    if (field == value) return false;
    field = value;
    notifyChange();
    return true;
  }

 private:
  // Whether `child`, as far as this view decides, is to be seen.
  virtual bool shows(const View& child) const;
  // `child` has left, perhaps because it is being destroyed: compare it, don't use it.
  virtual void childLeft(const View&) {}

  Rect frame_;
  bool hidden_ = false;
  std::string tooltip_;
  std::vector<View*> children_;  // borrowed
  View* parent_ = nullptr;       // borrowed
  std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace zavel

#endif
