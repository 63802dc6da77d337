// The page.
