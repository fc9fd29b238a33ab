// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

class Application;
class HotKeyCenter;
class LoginItem;
class MainQueue;
class MirkProtection;
class PanelFactory;
class Screens;

/// Every ability that the program asks of its desktop. The abilities outlive all that use them.
struct Platform {
    PanelFactory& panels;
    Screens& screens;
    HotKeyCenter& hotKeys;
    LoginItem& loginItem;
    Application& application;
    MainQueue& mainQueue;
    MirkProtection& mirkProtection;
};

} // namespace sablequill
