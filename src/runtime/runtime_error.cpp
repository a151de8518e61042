#include "runtime/runtime_error.h"

namespace tsl {

RuntimeError::RuntimeError(int number, QString description)
    : number_(number),
      description_(description.isEmpty() ? errorDescription(number) : std::move(description)),
      what_(QStringLiteral("Run-time error %1: %2").arg(number).arg(description_).toStdString()) {}

QString errorDescription(int number) {
    switch (number) {
    case ErrInvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrOverflow:
        return QStringLiteral("Overflow");
    case ErrSubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrTypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrFileNotFound:
        return QStringLiteral("File not found");
    case ErrFileAlreadyOpen:
        return QStringLiteral("File already open");
    case ErrDeviceUnavailable:
        return QStringLiteral("Device unavailable");
    case ErrPermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrPathFileAccess:
        return QStringLiteral("Path/File access error");
    case ErrPathNotFound:
        return QStringLiteral("Path not found");
    case ErrInvalidPropertyValue:
        return QStringLiteral("Invalid property value");
    case ErrPropertyReadOnly:
        return QStringLiteral("Property is read-only");
    case ErrObjectRequired:
        return QStringLiteral("Object required");
    case ErrCancelled:
        return QStringLiteral("Cancel was selected.");
    default:
        return QStringLiteral("Application-defined or object-defined error");
    }
}

void raise(int number, const QString& description) {
    throw RuntimeError(number, description);
}

void raiseNoObject() {
    raise(ErrObjectRequired, QStringLiteral("Object variable or With block variable not set"));
}

} // namespace tsl
