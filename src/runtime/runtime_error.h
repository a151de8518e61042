#pragma once
// The program's failure rules are written in terms of numbered run-time errors. One exception
// type carries the number; handlers catch it, resume past it, or let it reach the dispatcher.
#include <QString>
#include <exception>
#include <string>

namespace tsl {

enum ErrorNumber : int {
    ErrInvalidProcedureCall = 5,
    ErrOverflow = 6,
    ErrSubscriptOutOfRange = 9,
    ErrTypeMismatch = 13,
    ErrFileNotFound = 53,
    ErrFileAlreadyOpen = 55,
    ErrDeviceUnavailable = 68,
    ErrPermissionDenied = 70,
    ErrPathFileAccess = 75,
    ErrPathNotFound = 76,
    ErrInvalidPropertyValue = 380,
    ErrPropertyReadOnly = 383,
    ErrObjectRequired = 424,
    ErrCancelled = 32755,
};

class RuntimeError : public std::exception {
  public:
    explicit RuntimeError(int number, QString description = QString());
    int number() const { return number_; }
    const QString& description() const { return description_; }
    const char* what() const noexcept override { return what_.c_str(); }

  private:
    int number_;
    QString description_;
    std::string what_;
};

// The standard description of an error number, used when an error is raised without its own.
QString errorDescription(int number);

[[noreturn]] void raise(int number, const QString& description = QString());

// Raised where an object is needed and there is none: no document in front, no node there.
[[noreturn]] void raiseNoObject();

template <typename T> T& required(T* object) {
    if (!object) raiseNoObject();
    return *object;
}

} // namespace tsl
