#include "base/Messages.h"

#include <QString>

namespace messages {

namespace {

std::unique_ptr<IHandler> &handler()
{
    static std::unique_ptr<IHandler> installed;
    return installed;
}

} // namespace

std::unique_ptr<IHandler> install(std::unique_ptr<IHandler> next)
{
    return std::exchange(handler(), std::move(next));
}

void show(Severity severity, const QString &title, const QString &text)
{
    if (handler())
        handler()->show(severity, title, text);
}

void information(const QString &title, const QString &text)
{
    show(Severity::Information, title, text);
}

void warning(const QString &title, const QString &text)
{
    show(Severity::Warning, title, text);
}

void critical(const QString &title, const QString &text)
{
    show(Severity::Critical, title, text);
}

} // namespace messages
