// The buttons of the preview's bars.
#pragma once

#include <QFrame>
#include <QPushButton>
#include <QToolButton>

namespace tevra {

/// A button with a picture alone; where the picture is missing, with `text`.
QToolButton* MakeToolButton(const char* name, const char* picture, const char* text,
                            const char* tip, QWidget* parent);

/// A button with a caption beside its picture; it may become as narrow as the picture alone.
QPushButton* MakeCommand(const char* name, const char* caption, const char* picture,
                         const char* tip, QWidget* parent);

QFrame* MakeSeparator(QWidget* parent);

}  // namespace tevra
