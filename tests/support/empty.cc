// Something to link where only the precompiled headers matter; the test framework brings its main.
