#include "viewer/designer_check.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>
#include <QStringList>

namespace quorvale {

namespace {

constexpr auto pluginFile = "designer/libquorvalebox-designer.so";
constexpr auto widgetPlugin = "org.qt-project.Qt.QDesignerCustomWidget";

DesignerCheck failed(const QString& fileName, const QString& reason) {
    return {false, QString("%1: %2").arg(fileName, reason)};
}

QString firstInPluginPaths(QStringList& looked) {
    for (const QString& path : QCoreApplication::libraryPaths()) {
        const QString candidate = QDir(path).filePath(pluginFile);
        if (QFileInfo::exists(candidate)) return candidate;
        looked.append(QFileInfo(candidate).path());
    }
    return {};
}

}  // namespace

DesignerCheck checkDesignerPlugin(const QString& fileName, const QString& ownVersion) {
    QStringList looked;
    const QString plugin = fileName.isEmpty() ? firstInPluginPaths(looked) : fileName;
    if (plugin.isEmpty()) {
        return failed(
            QFileInfo(pluginFile).fileName(),
            QString("not found in %1; QT_PLUGIN_PATH names other places").arg(looked.join(" or ")));
    }
    if (!QFileInfo(plugin).isFile()) return failed(plugin, "there is no such file");
    // A relative name would be looked for where Qt's plugins are.
    QPluginLoader loader(QFileInfo(plugin).absoluteFilePath());
    const QJsonObject about = loader.metaData();
    if (about.isEmpty()) {
        return failed(plugin, QString("no plugin for this Qt: %1").arg(loader.errorString()));
    }
    if (about.value("IID").toString() != widgetPlugin) {
        return failed(plugin, "a Qt plugin, but none with a widget for Qt Designer");
    }
    const QJsonObject own = about.value("MetaData").toObject();
    const QString version = own.value("Version").toString();
    if (version != ownVersion) {
        return failed(plugin, QString("is of version %1, not %2").arg(version, ownVersion));
    }
    if (loader.instance() == nullptr) return failed(plugin, loader.errorString());
    return {true, QString("%1: loads, and offers %2").arg(plugin, own.value("Class").toString())};
}

}  // namespace quorvale
