#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <json/value.h>

#include <memory>
#include <optional>

namespace kelvane {

/// A value of a layout file, which knows its name and its place. What is asked of it and isn't there throws
/// `ReportError` with the file and the line.
class LayoutNode {
  public:
    /// A choice of a list: what stands in the file, and what it means.
    template <typename Value>
    using Choices = QList<std::pair<QString, Value>>;

    [[noreturn]] void fail(const QString& reason) const;

    /// That it is an object with none but these keys.
    void expectKeys(const QStringList& known) const;
    bool has(const QString& key) const;
    LayoutNode at(const QString& key) const;
    std::optional<LayoutNode> find(const QString& key) const;
    /// The keys of an object.
    QStringList names() const;

    bool isList() const { return value_->isArray(); }
    QList<LayoutNode> elements() const;
    double number(double least, double most) const;
    int wholeNumber(int least, int most) const;
    QString text() const;
    bool flag() const;

    /// The meaning of the text that stands here.
    template <typename Value>
    Value choice(const Choices<Value>& choices) const {
        const auto chosen = text();
        QStringList known;
        for (const auto& candidate : choices) {
            if (candidate.first == chosen)
                return candidate.second;
            known << candidate.first;
        }
        failUnknown(chosen, known);
    }
    [[noreturn]] void failUnknown(const QString& chosen, const QStringList& known) const;

    /// The folder of the file.
    QString folder() const;

  private:
    friend LayoutNode readLayoutFile(const QString& path);
    struct File;
    LayoutNode(std::shared_ptr<const File> file, const Json::Value& value, QString name);

    std::shared_ptr<const File> file_;
    const Json::Value* value_;
    QString name_;
};

/// The whole of a layout file: an object. Throws `ReportError` when it can't be read or is no JSON.
LayoutNode readLayoutFile(const QString& path);

} // namespace kelvane
