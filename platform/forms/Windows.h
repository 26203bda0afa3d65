// Shows screens: as children of the main frame, or without a frame as separate
// windows.
#pragma once

#include <QPointer>
#include <functional>
#include <map>
#include <string>

#include "platform/forms/Form.h"

namespace tevra::windows {

/// Shows a screen, or brings a visible one to the front.
using Host = std::function<void(Form& form)>;

/// Sets the handler that shows screens and returns the previous one. Without one, a screen is a
/// separate window.
Host SetHost(Host host);

/// Shows the screen or brings it to the front. It is deleted after it was closed.
void Show(Form& form);

/// The open instance of a screen that exists once; nullptr when it is not open.
template <class Screen>
QPointer<Screen>& Single() {
  static QPointer<Screen> instance;
  return instance;
}

/// Opens a screen that exists once, or brings it to the front.
template <class Screen>
Screen& Open() {
  QPointer<Screen>& instance = Single<Screen>();
  if (!instance) {
    instance = new Screen;
    // A closed screen is deleted a little later; until then opening it creates another one.
    QObject::connect(instance, &Form::Closed, instance, [closed = instance.data()] {
      if (Single<Screen>() == closed) Single<Screen>().clear();
    });
  }
  Show(*instance);
  return *instance;
}

/// The open instances of a screen that exists once for each thing that it shows, by that thing.
template <class Screen>
std::map<std::string, QPointer<Screen>>& Keyed() {
  static std::map<std::string, QPointer<Screen>> instances;
  return instances;
}

/// Opens the screen of one thing, such as the card of an asset, or brings it to the front. `make`
/// gives a new one.
template <class Screen>
Screen& OpenFor(const std::string& key, const std::function<Screen*()>& make) {
  QPointer<Screen> screen = Keyed<Screen>()[key];
  if (!screen) {
    screen = make();
    Keyed<Screen>()[key] = screen;
    QObject::connect(screen, &Form::Closed, screen, [key, closed = screen.data()] {
      if (Keyed<Screen>()[key] == closed) Keyed<Screen>().erase(key);
    });
  }
  Show(*screen);
  return *screen;
}

/// Opens another instance of a screen that may be open several times.
template <class Screen>
Screen& OpenNew() {
  auto* screen = new Screen;
  Show(*screen);
  return *screen;
}

}  // namespace tevra::windows
