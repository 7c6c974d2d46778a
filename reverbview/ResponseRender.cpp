#include "reverbview/ResponseRender.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <cmath>
#include <utility>

namespace {

// The switches, integers used as flags.
int RenderRearPanel = 1;
int RenderEarly = 1;
int RenderLate = 1;
int RenderHFPlane = 0;
int RenderLFPlane = 0;
int WireRearPanel = 0;
int WireEarly = 0;
int WireLate = 0;

float ViewRotationX = 38.0f;
float ViewRotationY = -12.0f;

std::function<void(const ResponseFace&)> Recorder;
ResponseObject Drawing = ResponseObject::RearPanel;

struct Material {
    GLfloat colour[4];
    GLenum face;
};
constexpr Material kRearPanel{{0.5f, 0.5f, 0.5f, 1.0f}, GL_FRONT_AND_BACK};
constexpr Material kEarly{{0.7f, 0.2f, 0.2f, 1.0f}, GL_FRONT};
constexpr Material kLate{{0.2f, 0.4f, 0.8f, 1.0f}, GL_FRONT};
constexpr Material kHFPlane{{1.0f, 0.0f, 0.0f, 0.3f}, GL_FRONT_AND_BACK};
constexpr Material kLFPlane{{0.6f, 0.6f, 0.0f, 0.3f}, GL_FRONT_AND_BACK};

constexpr GLfloat kLightAmbient[4] = {0.2f, 0.2f, 0.2f, 1.0f};
constexpr GLfloat kLightDiffuse[4] = {0.5f, 0.5f, 0.5f, 1.0f};
constexpr GLfloat kLightSpecular[4] = {1.0f, 1.0f, 1.0f, 1.0f};
constexpr GLfloat kLightPosition[4] = {100.0f, 100.0f, 45.0f, 3.0f};

// Corners of the rear panel: two walls, the floor and the right wall at x = 2.
constexpr ResponsePoint kCorner[8] = {{0, 0, 0}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1},
                                      {2, 0, 0}, {2, 1, 0}, {2, 0, 1}, {2, 1, 1}};

// x of the graph's right wall.
constexpr float X = ResponseTimeExtent;

void Use(const Material& material, ResponseObject object)
{
    glMaterialfv(material.face, GL_AMBIENT_AND_DIFFUSE, material.colour);
    Drawing = object;
}

bool RearPanelOpaque()
{
    return RenderRearPanel && !WireRearPanel;
}

void DrawFace(const ResponsePoint* const* points, int corners, const double normal[3])
{
    if (Recorder) {
        ResponseFace face{Drawing, corners, {}, {normal[0], normal[1], normal[2]}};
        for (int i = 0; i < corners; ++i)
            face.points[i] = *points[i];
        Recorder(face);
    }
    glBegin(GL_POLYGON);
    glNormal3dv(normal);
    for (int i = 0; i < corners; ++i)
        glVertex3fv(&points[i]->x);
    glEnd();
}

// The normal of the face through its first three points: (p1 - p0) x (p2 - p0), in double precision,
// of length 1; a zero-length one stays zero.
void AutoNormal(const ResponsePoint* const* p, double normal[3])
{
    const double ax = double(p[1]->x) - p[0]->x, ay = double(p[1]->y) - p[0]->y, az = double(p[1]->z) - p[0]->z;
    const double bx = double(p[2]->x) - p[0]->x, by = double(p[2]->y) - p[0]->y, bz = double(p[2]->z) - p[0]->z;
    normal[0] = ay * bz - az * by;
    normal[1] = az * bx - ax * bz;
    normal[2] = ax * by - ay * bx;
    const double length = std::sqrt(normal[0] * normal[0] + normal[1] * normal[1] + normal[2] * normal[2]);
    if (length != 0.0)
        for (int i = 0; i < 3; ++i)
            normal[i] /= length;
}

void DrawAutoNormal(std::initializer_list<const ResponsePoint*> points)
{
    double normal[3];
    AutoNormal(points.begin(), normal);
    DrawFace(points.begin(), static_cast<int>(points.size()), normal);
}

} // namespace

// The four helpers: a polygon of four, five or three points with the normal worked out from its
// first three, and one of four points with a given normal.
void DrawQuadAutoNormal(const ResponsePoint& a, const ResponsePoint& b, const ResponsePoint& c, const ResponsePoint& d)
{
    DrawAutoNormal({&a, &b, &c, &d});
}

void DrawPentagonAutoNormal(const ResponsePoint& a, const ResponsePoint& b, const ResponsePoint& c,
                            const ResponsePoint& d, const ResponsePoint& e)
{
    DrawAutoNormal({&a, &b, &c, &d, &e});
}

void DrawTriangleAutoNormal(const ResponsePoint& a, const ResponsePoint& b, const ResponsePoint& c)
{
    DrawAutoNormal({&a, &b, &c});
}

void DrawQuadNormal(const ResponsePoint& a, const ResponsePoint& b, const ResponsePoint& c, const ResponsePoint& d,
                    double nx, double ny, double nz)
{
    const ResponsePoint* points[4] = {&a, &b, &c, &d};
    const double normal[3] = {nx, ny, nz};
    DrawFace(points, 4, normal);
}

namespace {

void DrawRearPanel()
{
    if (!RenderRearPanel)
        return;
    Use(kRearPanel, ResponseObject::RearPanel);
    glPolygonMode(GL_FRONT_AND_BACK, WireRearPanel ? GL_LINE : GL_FILL);
    const ResponsePoint* c = kCorner;
    DrawQuadAutoNormal(c[0], c[4], c[5], c[1]); // wall at z = 0
    DrawQuadAutoNormal(c[0], c[1], c[2], c[3]); // wall at x = 0
    DrawQuadAutoNormal(c[0], c[3], c[6], c[4]); // floor
    DrawQuadAutoNormal(c[5], c[4], c[6], c[7]); // wall at x = 2
}

void DrawEarly(const ResponseScene& s)
{
    if (!RenderEarly)
        return;
    Use(kEarly, ResponseObject::Early);
    // The wire frame of the slab is for its front faces only, unlike the wedge's.
    if (WireEarly)
        glPolygonMode(GL_FRONT, GL_LINE);
    else
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    for (int i = 0; i + 1 < s.Rows; ++i) {
        DrawQuadAutoNormal(s.EarlyStartTop[i], s.EarlyStartTop[i + 1], s.EarlyEndTop[i + 1], s.EarlyEndTop[i]);
        DrawQuadNormal(s.EarlyEndTop[i], s.EarlyEndTop[i + 1], s.EarlyEndBase[i + 1], s.EarlyEndBase[i], 1, 0, 0);
        DrawQuadNormal(s.EarlyStartBase[i], s.EarlyStartBase[i + 1], s.EarlyStartTop[i + 1], s.EarlyStartTop[i], -1,
                       0, 0);
    }
    if (s.Rows < 1)
        return;
    const int last = s.Rows - 1;
    DrawQuadNormal(s.EarlyStartTop[last], s.EarlyStartBase[last], s.EarlyEndBase[last], s.EarlyEndTop[last], 0, 0, 1);
    if (!RearPanelOpaque())
        DrawQuadNormal(s.EarlyStartTop[0], s.EarlyStartBase[0], s.EarlyEndBase[0], s.EarlyEndTop[0], 0, 0, -1);
}

// One strip of the wedge's decay surface, and the face on the right wall where it leaves through it.
void DrawLateStrip(const ResponseScene& s, int i, ResponsePoint& cut)
{
    const float f0 = s.LateFloorPoint[i].x;
    const float f1 = s.LateFloorPoint[i + 1].x;
    const bool wallFaces = !RearPanelOpaque();
    // Where the line between the two floor points crosses the right wall.
    auto placeCut = [&] {
        cut.z = (X - f0) / (f1 - f0) * (s.LateFloorPoint[i + 1].z - s.LateFloorPoint[i].z) + s.LateFloorPoint[i].z;
    };
    if (X >= f0 && X >= f1) {
        DrawQuadAutoNormal(s.LateStartTop[i], s.LateStartTop[i + 1], s.LateFloorPoint[i + 1], s.LateFloorPoint[i]);
    } else if (f0 > X && f1 > X) {
        DrawQuadAutoNormal(s.LateStartTop[i], s.LateStartTop[i + 1], s.LateWallPoint[i + 1], s.LateWallPoint[i]);
        if (wallFaces)
            DrawQuadAutoNormal(s.LateWallPoint[i], s.LateWallPoint[i + 1], s.LateWallBase[i + 1], s.LateWallBase[i]);
    } else if (X >= f0 && f1 > X) {
        placeCut();
        DrawPentagonAutoNormal(s.LateStartTop[i], s.LateStartTop[i + 1], s.LateWallPoint[i + 1], cut,
                               s.LateFloorPoint[i]);
        if (wallFaces)
            DrawTriangleAutoNormal(cut, s.LateWallPoint[i + 1], s.LateWallBase[i + 1]);
    } else {
        placeCut();
        DrawPentagonAutoNormal(s.LateStartTop[i], s.LateStartTop[i + 1], s.LateFloorPoint[i + 1], cut,
                               s.LateWallPoint[i]);
        if (wallFaces)
            DrawTriangleAutoNormal(cut, s.LateWallBase[i], s.LateWallPoint[i]);
    }
}

void DrawLate(const ResponseScene& s)
{
    if (!RenderLate)
        return;
    Use(kLate, ResponseObject::Late);
    glPolygonMode(GL_FRONT_AND_BACK, WireLate ? GL_LINE : GL_FILL);
    ResponsePoint cut{X, 0.0f, 0.0f};
    for (int i = 0; i + 1 < s.Rows; ++i) {
        DrawQuadNormal(s.LateStartBase[i], s.LateStartBase[i + 1], s.LateStartTop[i + 1], s.LateStartTop[i], -1, 0, 0);
        DrawLateStrip(s, i, cut);
    }
    if (s.Rows < 1)
        return;
    const int last = s.Rows - 1;
    if (X >= s.LateFloorPoint[last].x)
        DrawTriangleAutoNormal(s.LateStartTop[last], s.LateStartBase[last], s.LateFloorPoint[last]);
    else
        DrawQuadAutoNormal(s.LateStartTop[last], s.LateStartBase[last], s.LateWallBase[last], s.LateWallPoint[last]);
    if (RearPanelOpaque())
        return;
    // Row 0's end face, wound the other way round.
    if (X >= s.LateFloorPoint[0].x)
        DrawTriangleAutoNormal(s.LateStartTop[0], s.LateFloorPoint[0], s.LateStartBase[0]);
    else
        DrawQuadAutoNormal(s.LateStartTop[0], s.LateWallPoint[0], s.LateWallBase[0], s.LateStartBase[0]);
}

void DrawPlane(int flag, const Material& material, ResponseObject object, const ResponseScene::RefPlane& plane)
{
    if (!flag)
        return;
    Use(material, object);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    DrawQuadAutoNormal(plane[0], plane[1], plane[2], plane[3]);
}

// The planes are translucent and not sorted: LF is always drawn before HF.
void DrawPlanes(const ResponseScene& s)
{
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    DrawPlane(RenderLFPlane, kLFPlane, ResponseObject::LFPlane, s.LFRefPlane);
    DrawPlane(RenderHFPlane, kHFPlane, ResponseObject::HFPlane, s.HFRefPlane);
    glDisable(GL_BLEND);
}

} // namespace

int InitResponseScene(int rows)
{
    glShadeModel(GL_SMOOTH);
    glEnable(GL_LINE_SMOOTH);
    glClearColor(0.0f, 0.0f, 0.0f, 0.5f);
    glClearDepth(1.0);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    BuildResponseAxes(rows);
    return 1;
}

void RenderResponse(int left, int top, int width, int height, const ReverbResponseParams& params)
{
    glViewport(left, top, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    // A view of no height has no aspect: it draws with 1 rather than dividing by zero.
    gluPerspective(45.0, height > 0 ? double(width) / height : 1.0, 0.1, 100.0);
    glMatrixMode(GL_MODELVIEW);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glLoadIdentity();

    // Set while the modelview is the identity: the light stays with the camera as the graph turns.
    glLightfv(GL_LIGHT0, GL_AMBIENT, kLightAmbient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, kLightDiffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, kLightSpecular);
    glLightfv(GL_LIGHT0, GL_POSITION, kLightPosition);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);

    glTranslatef(0.0f, 0.0f, -ViewDistance);
    glScalef(ViewScale[0], ViewScale[1], ViewScale[2]);
    glRotatef(ViewRotationX, 1.0f, 0.0f, 0.0f);
    glRotatef(ViewRotationY, 0.0f, 1.0f, 0.0f);
    glRotatef(ViewRotationZ, 0.0f, 0.0f, 1.0f);
    glTranslatef(ViewOffset[0], ViewOffset[1], ViewOffset[2]);

    const ResponseScene& scene = GetResponseScene();
    DrawRearPanel();
    // The meshes are built whatever the switches say: the planes read the late mesh.
    BuildEarlyMesh(params);
    DrawEarly(scene);
    BuildLateMesh(params);
    DrawLate(scene);
    UpdateRefPlanes(params);
    DrawPlanes(scene);
}

void ReleaseResponseScene()
{
    ReleaseResponseAxes();
}

void SetRenderRearPanel(int flag) { RenderRearPanel = flag; }
void SetRenderEarly(int flag) { RenderEarly = flag; }
void SetRenderLate(int flag) { RenderLate = flag; }
void SetRenderHFPlane(int flag) { RenderHFPlane = flag; }
void SetRenderLFPlane(int flag) { RenderLFPlane = flag; }
void SetWireRearPanel(int flag) { WireRearPanel = flag; }
void SetWireEarly(int flag) { WireEarly = flag; }
void SetWireLate(int flag) { WireLate = flag; }

void SetViewRotationX(float degrees) { ViewRotationX = degrees; }
void SetViewRotationY(float degrees) { ViewRotationY = degrees; }
float GetViewRotationX() { return ViewRotationX; }
float GetViewRotationY() { return ViewRotationY; }

void SetResponseFaceRecorder(std::function<void(const ResponseFace&)> recorder)
{
    Recorder = std::move(recorder);
}
