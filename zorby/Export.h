#pragma once

// Marks what a host may call; every other symbol of the shared library is hidden.
#if defined(_WIN32)
#ifdef ZORBY_BUILDING
#define ZORBY_EXPORT __declspec(dllexport)
#else
#define ZORBY_EXPORT __declspec(dllimport)
#endif
#else
#define ZORBY_EXPORT __attribute__((visibility("default")))
#endif
