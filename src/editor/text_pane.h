#pragma once
// An in-memory Source pane: the hidden work areas of the program, and the pane of the tests.
#include "editor/surfaces.h"

namespace tsl {

class TextPane : public SourcePane {
  public:
    QString Text() const override { return text_; }
    void setText(const QString& text) override;
    int SelStart() const override { return selStart_; }
    void setSelStart(int position) override;
    int SelLength() const override { return selLength_; }
    void setSelLength(int length) override;
    QString SelText() const override { return text_.mid(selStart_, selLength_); }
    void setSelText(const QString& text) override;
    int length() const override { return static_cast<int>(text_.size()); }
    void SetFocus() override { ++focusCount_; }
    int focusCount() const { return focusCount_; }

  private:
    QString text_;
    int selStart_ = 0;
    int selLength_ = 0;
    int focusCount_ = 0;
};

} // namespace tsl
