#pragma once

/// Marks what libquietdial-platform.so exports; everything else in it stays hidden.
#define PLATFORM_API __attribute__((visibility("default")))
