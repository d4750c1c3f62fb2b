#pragma once

#include <QGenericPlugin>

// Brings the typist into a program of Qt's.
class TypistPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "typist.json")

public:
    QObject* create(const QString& key, const QString& settings) override;
};
