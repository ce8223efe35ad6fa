#include "settings/bundles/OpeningRecord.h"

#include <QDir>
#include <QFile>
#include <QUrl>
#include <utility>

#include "linux/privateFolder.h"

OpeningRecord::OpeningRecord(QString folder) : folder_(std::move(folder)) {
  setPaneObserver(this);
}

OpeningRecord::~OpeningRecord() {
  setPaneObserver(nullptr);
  succeed();
}

QString OpeningRecord::fileFor(const std::string& className) const {
  // Names come from resources; none of their signs may lead to another folder.
  const QByteArray name = QUrl::toPercentEncoding(QString::fromStdString(className), {}, ".~");
  return QDir(folder_).filePath(QString::fromLatin1(name.left(200)));
}

bool OpeningRecord::tookProgramDown(const std::string& className) const {
  const QString file = fileFor(className);
  return !opening_.contains(file) && QFile::exists(file);
}

void OpeningRecord::begin(const std::string& className) {
  const QString path = fileFor(className);
  QFile file(path);
  if (!className.empty() && makePrivateFolders(QFile::encodeName(folder_).toStdString()) &&
      file.open(QIODevice::WriteOnly)) {
    opening_.insert(path);
  }
}

void OpeningRecord::succeed() {
  for (const auto& file : std::exchange(opening_, {})) {
    QFile::remove(file);
  }
}
