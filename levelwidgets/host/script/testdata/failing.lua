-- For the tests.
error("not today")
