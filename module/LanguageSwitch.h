#pragma once

// Asks the host for its language once and points the translator and the control library at it.
void SwitchLanguage();
