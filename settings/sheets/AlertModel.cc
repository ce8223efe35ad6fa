#include "settings/sheets/AlertModel.h"

#include <utility>

#include "platform/uikit/UIAlertView.h"

AlertModel::AlertModel(std::shared_ptr<UIAlertView> alert) : alert_(std::move(alert)) {}

QString AlertModel::title() const {
  return QString::fromStdString(alert_->title());
}

QString AlertModel::message() const {
  return QString::fromStdString(alert_->message());
}

QString AlertModel::button() const {
  return QString::fromStdString(alert_->cancelButtonTitle());
}
