#error "the component uses the standard library alone"
