#include "session/frmAbout.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/forms/Pictures.h"
#include "session/Version.h"

namespace tevra {

frmAbout::frmAbout(QWidget* parent) : Form("frmAbout", "Informatii", parent) {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setWindowModality(Qt::ApplicationModal);
  imgLogo = new QLabel(this);
  imgLogo->setObjectName("imgLogo");
  imgLogo->setPixmap(PictureIcon("\\BMP\\Tevra.ico").pixmap(64, 64));
  lblTitle = new QLabel(kApplicationTitle, this);
  lblTitle->setObjectName("lblTitle");
  QFont large = lblTitle->font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  large.setBold(true);
  lblTitle->setFont(large);
  lblVersion = new QLabel(
      QString("Versiune %1.%2.%3").arg(kVersionMajor).arg(kVersionMinor).arg(kRevision), this);
  lblVersion->setObjectName("lblVersion");
  lblDescription = new QLabel("Evidenta imobilizarilor si a obiectelor de inventar", this);
  lblDescription->setObjectName("lblDescription");
  cmdOK = new QPushButton("OK", this);
  cmdOK->setObjectName("cmdOK");
  cmdOK->setIcon(PictureIcon("\\BMP\\OK.bmp"));
  cmdOK->setDefault(true);
  cmdOK->setMinimumWidth(90);
  SetCancelButton(cmdOK);
  connect(cmdOK, &QPushButton::clicked, this, [this] { close(); });

  auto* texts = new QVBoxLayout;
  texts->addWidget(lblTitle);
  texts->addWidget(lblVersion);
  texts->addWidget(lblDescription);
  auto* top = new QHBoxLayout;
  top->setSpacing(18);
  top->addWidget(imgLogo, 0, Qt::AlignTop);
  top->addLayout(texts, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(20, 20, 20, 14);
  all->setSpacing(18);
  all->addLayout(top);
  all->addWidget(cmdOK, 0, Qt::AlignRight);
  setFixedSize(sizeHint());
}

}  // namespace tevra
