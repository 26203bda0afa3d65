// The buttons of the preview's tool bars.
#pragma once

#include <QFrame>
#include <QPushButton>
#include <QToolButton>

namespace tevra {

/// A button with a picture only, or with `text` when the picture is missing.
QToolButton* MakeToolButton(const char* name, const char* picture, const char* text,
                            const char* tip, QWidget* parent);

/// A button with a caption beside its picture; it may shrink to the width of the picture.
QPushButton* MakeCommand(const char* name, const char* caption, const char* picture,
                         const char* tip, QWidget* parent);

QFrame* MakeSeparator(QWidget* parent);

}  // namespace tevra
