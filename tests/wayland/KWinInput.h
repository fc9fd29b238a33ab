// SPDX-License-Identifier: MIT
#pragma once

#include "CompositorInput.h"

#include <memory>
#include <string>

struct org_kde_kwin_fake_input;
struct wl_display;

namespace sablequill {

/// By the compositor's own protocol for that.
class KWinInput final : public CompositorInput {
public:
    /// `socket` is the path of the compositor's socket. Throws std::runtime_error when the
    /// compositor does not offer it.
    explicit KWinInput(const std::string& socket);
    ~KWinInput() override;

    void moveTo(Point point) override;
    void setButton(bool isPressed) override;
    void setKey(unsigned code, bool isPressed) override;

private:
    wl_display* display;
    org_kde_kwin_fake_input* input = nullptr;
};

} // namespace sablequill
